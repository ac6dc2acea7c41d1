// The level of a line that a sequence logs.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxLogLevel : public COtxValue {
public:
    enum LogLevel : int {
        All = 0,    // "ALL"
        Trace = 1,  // "TRACE"
        Debug = 2,  // "DEBUG"
        Info = 3,   // "INFO"
        Warn = 4,   // "WARN"
        Error = 5,  // "ERROR"
        Fatal = 6,  // "FATAL"
        Off = 7     // "OFF"
    };

    explicit COtxLogLevel(LogLevel value);
};
