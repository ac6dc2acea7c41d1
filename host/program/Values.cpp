// The values that a run is given.
#include "program/Values.h"

#include "program/Inputs.h"
#include "program/UsageError.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <otx/value/COtxMap.h>
#include <otx/value/Functions.h>
#include <otx/value/Json.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <ostream>

namespace velkotx::host {

namespace {

using NamedValues = std::map<const std::string, COtxValue>;

// A map of the OTX form may have other keys than strings, or be something else that JSON writes as an object.
bool isObject(const COtxValue& value) {
    if (value.Type() != OTX::ValueType::Map)
        return false;
    return std::ranges::all_of(
        value.Map(), [](const auto& entry) { return entry.first.Type() == OTX::ValueType::String; });
}

NamedValues namedValues(Inputs& inputs, const std::string& file) {
    if (file.empty())
        return {};
    try {
        const COtxValue content = OTX::FromJSON(inputs.read(file));
        if (!isObject(content))
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

// A list or an object with a mistake is a text as any other, and mostly not meant to be.
void warnOfBrokenJson(const std::string& argument, const std::string& text, const COtxValue& value, std::ostream& err) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const bool isOpened = begin != std::string::npos && (text[begin] == '[' || text[begin] == '{');
    if (isOpened && value.Type() == OTX::ValueType::String && value.String() == text)
        err << "velkotx: --arg: '" << oneLine(argument) << "' begins as JSON but isn't any, and is taken as a String\n";
}

}  // namespace

COtxValue readObject(Inputs& inputs, const std::string& file) {
    return COtxMap(namedValues(inputs, file));
}

COtxValue readArguments(Inputs& inputs, const std::string& file, const std::vector<std::string>& commandLine,
                        std::ostream& err) {
    NamedValues arguments = namedValues(inputs, file);
    for (const std::string& argument : commandLine) {
        const std::size_t sign = argument.find('=');
        if (sign == std::string::npos || sign == 0)
            throw UsageError("--arg: '" + argument + "' isn't NAME=VALUE");
        const std::string text = argument.substr(sign + 1);
        const COtxValue value = valueOf(text);
        warnOfBrokenJson(argument, text, value, err);
        arguments.insert_or_assign(argument.substr(0, sign), value);
    }
    return COtxMap(arguments);
}

}  // namespace velkotx::host
