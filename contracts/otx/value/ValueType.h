// The type numbers of values.
#pragma once

#include <otx/Export.h>

#include <string>

namespace OTX {

// The type tag of a value. The numbers are fixed: hosts and documents compare against them.
enum class ValueType : int {
    Empty = 0,  // as the requested type of GetParameter: any type will do
    Boolean = 1,
    Integer = 2,
    String = 3,
    Result = 4,
    Response = 5,
    List = 6,
    Map = 7,
    ByteField = 8,
    Parameter = 9,
    ComChannel = 10,
    DiagService = 11,
    Exception = 12,
    EventSource = 13,
    Event = 14,
    Float = 15,
    Quantity = 16,
    Unit = 17,
    Request = 18,
    ServiceProvider = 19,
    ServiceProviderService = 20,
    FlashSession = 21,
    ComInterface = 22,
    FileReadHandle = 23,
    ResultState = 24,
    ResponseState = 25,
    ComChannelState = 26,
    MessageType = 27,
    ConfirmationType = 28,
    Audience = 29,
    LogLevel = 30,
    ConnectionStatus = 31,
    StringEncoding = 32,
    EnumerationItem = 33
};

// The name of a type, such as "ByteField"; "Type 99" for a number that the library doesn't know. It stands in log lines,
// in messages, and as the key of a value's OTX JSON form. Any thread.
OTX_API std::string typeName(ValueType type);

}  // namespace OTX
