// The action that sets a ComParameter.
#include <OTXCoreTerms/Evaluate.h>
#include <Trace.h>
#include <otx/diag/IComChannel.h>
#include <otx/value/COtxException.h>
#include <otx/value/IString.h>
#include <schema/DiagCom.h>

#include <sstream>


namespace DiagCom {

// What the host refuses becomes a type mismatch, unless it is that already or an unknown target; this is meant.
template <>
void SetComParameter_impl<SetComParameter_base>::exec(otxns::OtxContext& context) const {
    const COtxValue channel = otxns::evaluate(comChannel(), context);
    const COtxValue parameter = otxns::evaluate(name(), context);
    const COtxValue wanted = otxns::settled(otxns::evaluate(value(), context), context);
    OTX::IComChannel& target = channel.ComChannel();
    try {
        target.SetComParameter(parameter, wanted);
    } catch (const COtxValue& refusal) {
        const OTX::IException& exception = refusal.Exception();
        const OTX::Exceptions_e kind = exception.Kind();
        if (kind == OTX::Exceptions_e::UnknownTargetException || kind == OTX::Exceptions_e::TypeMismatchException) throw;
        std::ostringstream text;
        text << "Unable to update ComParameter " << parameter << " with value "
             << static_cast<const std::string&>(wanted.ToJSON().String()) << " error: " << exception.Text();
        OTX_TRACE(1, text.str());
        throw COtxException(OTX::Exceptions_e::TypeMismatchException, text.str());
    }
}

}  // namespace DiagCom
