// For whom flash data is.
#include <OTXFlash/COtxAudience.h>
#include <otx/value/COtxString.h>
#include <schema/Flash.h>

#include <memory>

namespace Flash {

COtxAudienceBehaviour::COtxAudienceBehaviour(int number)
    : COtxIntBehaviour(number, COtxInt::Decimal, OTX::ValueType::Audience),
      literal_(Audiences::literals()[static_cast<std::size_t>(number)]) {}

COtxValue COtxAudienceBehaviour::ToString() {
    return COtxString(literal_);
}

COtxAudience::COtxAudience(int number) : COtxValue(std::make_shared<COtxAudienceBehaviour>(number)) {}

}  // namespace Flash
