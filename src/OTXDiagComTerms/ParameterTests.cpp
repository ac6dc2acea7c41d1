// The terms that ask what a parameter is.
#include <OTXCoreTerms/Asking.h>
#include <otx/diag/IParameter.h>
#include <schema/DiagCom.h>
#include <schema/DiagDataBrowsing.h>

namespace DiagDataBrowsing {

OTX_TERM(IsBooleanParameter, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::IsBooleanParameter))
OTX_TERM(IsByteFieldParameter, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::IsByteFieldParameter))
OTX_TERM(IsComplexParameter, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::IsComplexParameter))
OTX_TERM(IsNumericParameter, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::IsNumericParameter))
OTX_TERM(IsStringParameter, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::IsStringParameter))

}  // namespace DiagDataBrowsing
