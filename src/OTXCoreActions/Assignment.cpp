// The Assignment action.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/IntegerTerms.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <Trace.h>

namespace otxns {

template <>
void Assignment_impl<Assignment_base>::exec(OtxContext& context) const {
    if (long long number = 0; !Trace::isOn(3) && calculateFreshInteger(term(), context, number))
        return assignInteger(result(), context, number);
    COtxValue value = evaluate(term(), context);
    OTX_TRACE(3,
              ":Assigning: " << Shown(value, context) << ", type " << value.stringType() << " to " << result().name());
    assign(result(), context, std::move(value));
}

}  // namespace otxns
