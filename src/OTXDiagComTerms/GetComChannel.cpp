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
    COtxValue selection = COtxBool(false);
    COtxValue variant = COtxString();
    if (performVariantSelection().present()) selection = otxns::evaluate(performVariantSelection().get(), context);
    if (ecuVariantName().present()) variant = otxns::evaluate(ecuVariantName().get(), context);
    return context.DiagCom().GetComChannel(name, variant, selection);
}

}  // namespace DiagCom
