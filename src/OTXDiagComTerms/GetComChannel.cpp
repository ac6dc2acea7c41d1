// The term that opens a channel.
#include <OTXCoreTerms/Evaluate.h>
#include <otx/host/DiagComHost.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxString.h>
#include <schema/DiagCom.h>

namespace DiagCom {

// The defaults are replaced by what the terms give, as it is.
template <>
COtxValue GetComChannel_impl<GetComChannel_base>::eval(otxns::OtxContext& context) const {
    const COtxValue name = otxns::evaluate(identifier(), context);
    const COtxValue selection = otxns::evaluateOr(performVariantSelection(), COtxBool(false), context);
    const COtxValue variant = otxns::evaluateOr(ecuVariantName(), COtxString(), context);
    return context.DiagCom().GetComChannel(name, variant, selection);
}

}  // namespace DiagCom
