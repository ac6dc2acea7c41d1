// A line of the file of --control.
#include "program/script/ControlLine.h"

#include "program/JsonMembers.h"

#include <otx/value/Json.h>

namespace velkotx::host {

namespace {

COtxValue parse(const std::string& line) {
    try {
        return OTX::FromJSON(line);
    } catch (const COtxValue& error) {
        throw FormError(error.what());
    }
}

}  // namespace

ControlLine readControlLine(const std::string& line) {
    const COtxValue json = parse(line);
    const JsonMembers members(json);
    if (!members.has("await"))
        return readHostCommand(json);
    members.refuseOthersThan({"await"});
    return Await{members.requiredText("await")};
}

}  // namespace velkotx::host
