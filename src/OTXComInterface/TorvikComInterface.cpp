// The term that makes a channel on an interface.
#include <OTXComInterface/PduInterface.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/host/DiagComHost.h>
#include <otx/value/COtxString.h>
#include <schema/ComInterface.h>
#include <schema/TorvikComInterface.h>

namespace TorvikComInterface {

template <>
COtxValue CreateComChannelFromComInterface_impl<CreateComChannelFromComInterface_base>::eval(
    otxns::OtxContext& context) const {
    const COtxValue asked = otxns::evaluate(comInterface(), context);
    const COtxValue name = otxns::evaluate(identifier(), context);
    const COtxValue variant = otxns::evaluateOr(ecuVariantName(), COtxString(), context);
    return context.DiagCom().CreateComChannelFromComInterface(ComInterface::pduInterfaceOf(asked), name, variant);
}

}  // namespace TorvikComInterface
