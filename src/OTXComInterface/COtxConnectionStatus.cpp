// The status of a vehicle communication interface.
#include <OTXComInterface/COtxConnectionStatus.h>
#include <otx/value/COtxString.h>
#include <schema/ComInterface.h>

#include <memory>

namespace ComInterface {

COtxConnectionStatusBehaviour::COtxConnectionStatusBehaviour(int number)
    : COtxIntBehaviour(number, COtxInt::Decimal, OTX::ValueType::ConnectionStatus),
      literal_(ConnectionStatusEnum::literals()[static_cast<std::size_t>(number)]) {}

COtxValue COtxConnectionStatusBehaviour::ToString() {
    return COtxString(literal_);
}

COtxConnectionStatus::COtxConnectionStatus(int number) : COtxValue(std::make_shared<COtxConnectionStatusBehaviour>(number)) {}

}  // namespace ComInterface
