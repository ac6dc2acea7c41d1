// The names of the value types.
#include <otx/value/ValueType.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace OTX {

namespace {

// By number.
constexpr std::array<std::string_view, 34> names{
    "Empty",          "Boolean",          "Integer",         "String",        "Result",
    "Response",       "List",             "Map",             "ByteField",     "Parameter",
    "ComChannel",     "DiagService",      "Exception",       "EventSource",   "Event",
    "Float",          "Quantity",         "Unit",            "Request",       "ServiceProvider",
    "ServiceProviderService", "FlashSession", "ComInterface", "FileReadHandle", "ResultState",
    "ResponseState",  "ComChannelState",  "MessageType",     "ConfirmationType", "Audience",
    "LogLevel",       "ConnectionStatus", "Encoding",        "Enumeration"};

}  // namespace

std::string typeName(ValueType type) {
    const auto number = static_cast<std::size_t>(type);
    if (number < names.size()) return std::string(names[number]);
    return "Type " + std::to_string(static_cast<int>(type));
}

}  // namespace OTX
