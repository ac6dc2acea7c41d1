// What a dialog is about.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxMessageType : public COtxValue {
public:
    enum MessageType : int {
        Info = 0,                // "INFO"
        Warning = 1,             // "WARNING"
        Error = 2,               // "ERROR"
        YesNoQuestion = 3,       // "YESNO_QUESTION"
        YesNoCancelQuestion = 4  // "YESNOCANCEL_QUESTION"
    };

    explicit COtxMessageType(MessageType value);
};
