// Arguments of a run that nothing in the document takes.
#pragma once

#include <otx/value/COtxValue.h>

#include <iosfwd>

namespace velkotx {
struct DocumentInfo;
}

namespace velkotx::host {

struct SetUpOptions;

// A line on the stream for each argument that is neither an in or inout parameter of the procedure nor a global of the document,
// with where it came from and what the procedure takes. Says nothing about a procedure that the document doesn't have.
void warnOfUnknownArguments(const DocumentInfo& document, const SetUpOptions& options, const COtxValue& arguments,
                            std::ostream& err);

}  // namespace velkotx::host
