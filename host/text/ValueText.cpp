// Values as people write and read them.
#include "text/ValueText.h"

#include "text/OneLine.h"

#include <otx/value/COtxString.h>
#include <otx/value/Json.h>

#include <sstream>

namespace velkotx::host {

COtxValue valueOf(const std::string& text) {
    try {
        return OTX::FromJSON(text);
    } catch (const COtxValue&) {
        return COtxString(text);  // no JSON: the text itself
    }
}

std::string lineOf(const COtxValue& value) {
    std::ostringstream text;
    text << value;
    return oneLine(text.str());
}

}  // namespace velkotx::host
