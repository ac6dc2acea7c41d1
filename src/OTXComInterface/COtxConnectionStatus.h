// The status of a vehicle communication interface.
#pragma once

#include <OTXCoreTypes/SchemaEnumeration.h>
#include <otx/value/COtxValue.h>
#include <schema/ComInterface.h>

#include <memory>

namespace ComInterface {

using COtxConnectionStatusBehaviour = otxns::SchemaEnumerationBehaviour<ConnectionStatusEnum, OTX::ValueType::ConnectionStatus>;

// The number is that of a literal.
class COtxConnectionStatus : public COtxValue {
public:
    enum ConnectionStatus : int {
        Connected = 0,  // "eCS_CONNECTED"
        Current = 1,  // "eCS_CURRENT"
        NotConnected = 2  // "eCS_NOTCONNECTED"
    };

    explicit COtxConnectionStatus(int number) : COtxValue(std::make_shared<COtxConnectionStatusBehaviour>(number)) {}
};

}  // namespace ComInterface
