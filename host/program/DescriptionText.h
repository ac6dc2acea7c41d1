// A document's description as text, for people and as JSON.
#pragma once

#include <string>

namespace velkotx {
struct DocumentInfo;
}

namespace velkotx::host {

class Paint;

// Lines for people, the last one with its line end.
std::string describeAsText(const DocumentInfo& document, const Paint& paint);

// One JSON object, without a line break.
std::string describeAsJson(const DocumentInfo& document);

}  // namespace velkotx::host
