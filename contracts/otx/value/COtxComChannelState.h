// The state of a communication channel.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxComChannelState : public COtxValue {
public:
    enum ComChannelState : int {
        Communication = 0,  // "COMMUNICATION"
        Online = 1,         // "ONLINE"
        Offline = 2,        // "OFFLINE"
        Created = 3         // "CREATED"
    };

    explicit COtxComChannelState(ComChannelState value);
};
