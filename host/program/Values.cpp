// The values that a run is given.
#include "program/Values.h"

#include "program/Inputs.h"
#include "program/UsageError.h"

#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/Json.h>

#include <cstddef>
#include <map>

namespace velkotx::host {

namespace {

using NamedValues = std::map<const std::string, COtxValue>;

NamedValues namedValues(Inputs& inputs, const std::string& file) {
    if (file.empty())
        return {};
    try {
        const COtxValue content = OTX::FromJSON(inputs.read(file));
        if (content.Type() != OTX::ValueType::Map)
            throw UsageError("a JSON object was expected");
        return OTX::ValMap(content);
    } catch (const UnreadableFile& error) {
        throw UsageError(displayName(file) + ": " + error.what());
    } catch (const UsageError& error) {
        throw UsageError(displayName(file) + ": " + error.what());
    } catch (const COtxValue& error) {
        throw UsageError(displayName(file) + ": " + error.what());
    }
}

COtxValue valueOf(const std::string& text) {
    try {
        return OTX::FromJSON(text);
    } catch (const COtxValue&) {
        return COtxString(text);  // no JSON: the text itself
    }
}

}  // namespace

COtxValue readObject(Inputs& inputs, const std::string& file) {
    return COtxMap(namedValues(inputs, file));
}

COtxValue readArguments(Inputs& inputs, const std::string& file, const std::vector<std::string>& commandLine) {
    NamedValues arguments = namedValues(inputs, file);
    for (const std::string& argument : commandLine) {
        const std::size_t sign = argument.find('=');
        if (sign == std::string::npos || sign == 0)
            throw UsageError("--arg: '" + argument + "' isn't NAME=VALUE");
        arguments.insert_or_assign(argument.substr(0, sign), valueOf(argument.substr(sign + 1)));
    }
    return COtxMap(arguments);
}

}  // namespace velkotx::host
