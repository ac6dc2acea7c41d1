// The status of a vehicle communication interface.
#pragma once

#include <otx/value/COtxInt.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <string>

namespace ComInterface {

// Integer-backed: Int() answers the number, ToString() the literal; all else is as for an Integer.
class COtxConnectionStatusBehaviour final : public COtxIntBehaviour {
public:
    explicit COtxConnectionStatusBehaviour(int number);

    COtxValue ToString() override;
    const char* what() const override { return literal_.c_str(); }

private:
    const std::string literal_;
};

// The number is that of a literal.
class COtxConnectionStatus : public COtxValue {
public:
    enum ConnectionStatus : int {
        Connected = 0,  // "eCS_CONNECTED"
        Current = 1,  // "eCS_CURRENT"
        NotConnected = 2  // "eCS_NOTCONNECTED"
    };

    explicit COtxConnectionStatus(int number);
};

}  // namespace ComInterface
