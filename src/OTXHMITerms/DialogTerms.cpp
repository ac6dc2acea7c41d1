// The values that dialogs are about: kinds of messages and answers.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/value/COtxConfirmationType.h>
#include <otx/value/COtxMessageType.h>
#include <schema/HMI.h>

namespace HMI {

OTX_TERM(MessageTypeLiteral, COtxMessageType(static_cast<COtxMessageType::MessageType>(value().number())))
OTX_TERM(MessageTypeValue, otxns::valueOfVariable(*this, context))
OTX_TERM(MessageType, otxns::initialValue(*this, context, [] { return COtxMessageType(COtxMessageType::Info); }))

OTX_TERM(ConfirmationTypeLiteral, COtxConfirmationType(static_cast<COtxConfirmationType::ConfirmationType>(value().number())))
OTX_TERM(ConfirmationTypeValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ConfirmationType, otxns::initialValue(*this, context, [] { return COtxConfirmationType(COtxConfirmationType::Yes); }))

}  // namespace HMI
