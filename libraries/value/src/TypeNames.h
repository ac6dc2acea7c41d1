// The names of the value types, by number.
#pragma once

#include <otx/value/ValueType.h>

#include <array>
#include <string>
#include <string_view>

namespace otx {

inline constexpr std::array<std::string_view, 34> typeNames{
    "Empty",        "Boolean",      "Integer",         "String",          "Result",
    "Response",     "List",         "Map",             "ByteField",       "Parameter",
    "ComChannel",   "DiagService",  "Exception",       "EventSource",     "Event",
    "Float",        "Quantity",     "Unit",            "Request",         "ServiceProvider",
    "ServiceProviderService",       "FlashSession",    "ComInterface",    "FileReadHandle",
    "ResultState",  "ResponseState", "ComChannelState", "MessageType",    "ConfirmationType",
    "Audience",     "LogLevel",     "ConnectionStatus", "Encoding",       "Enumeration"};

// What stands in a log for a value of that type that has no text.
inline std::string typeMark(OTX::ValueType type) {
    std::string mark = "<";
    mark += OTX::typeName(type);
    return mark += '>';
}

}  // namespace otx
