// The terms that read variables, the states of results and responses, and their data types.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/value/COtxResponseState.h>
#include <otx/value/COtxResultState.h>
#include <schema/DiagCom.h>

namespace DiagCom {

OTX_TERM(ComChannelValue, otxns::valueOfVariable(*this, context))
OTX_TERM(DiagServiceValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ParameterValue, otxns::valueOfVariable(*this, context))
OTX_TERM(RequestValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ResponseValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ResultValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ResponseStateValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ResultStateValue, otxns::valueOfVariable(*this, context))

OTX_TERM(ResponseStateLiteral, COtxResponseState(static_cast<COtxResponseState::ResponseState>(value().number())))
OTX_TERM(ResultStateLiteral, COtxResultState(static_cast<COtxResultState::ResultState>(value().number())))
OTX_TERM(ResponseState, otxns::initialValue(*this, context, [] { return COtxResponseState(COtxResponseState::Failed); }))
OTX_TERM(ResultState, otxns::initialValue(*this, context, [] { return COtxResultState(COtxResultState::AllFailed); }))

}  // namespace DiagCom
