// The terms that make an exception, or take one apart.
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

namespace otxns {

namespace {

// The text is evaluated ahead of the qualifier; this is meant.
template <class UserExceptionTerm>
COtxValue userException(const UserExceptionTerm& term, OtxContext& context) {
    const COtxValue text = evaluate(term.text(), context);
    const COtxValue qualifier = evaluate(term.qualifier(), context);
    return COtxException(OTX::Exceptions_e::UserException, qualifier.String(), text.String());
}

template <class ExceptionPart>
COtxValue textOf(const ExceptionPart& term, OtxContext& context, const std::string& (OTX::IException::*part)() const) {
    const COtxValue exception = evaluate(term.exception(), context);
    return COtxString((exception.Exception().*part)());
}

}  // namespace

template <>
COtxValue UserExceptionCreate_impl<UserExceptionCreate_base>::eval(OtxContext& context) const {
    return userException(*this, context);
}

template <>
COtxValue UserExceptionLiteral_impl<UserExceptionLiteral_base>::eval(OtxContext& context) const {
    return userException(*this, context);
}

template <>
COtxValue GetExceptionQualifier_impl<GetExceptionQualifier_base>::eval(OtxContext& context) const {
    return textOf(*this, context, &OTX::IException::Qualifier);
}

template <>
COtxValue GetExceptionText_impl<GetExceptionText_base>::eval(OtxContext& context) const {
    return textOf(*this, context, &OTX::IException::Text);
}

}  // namespace otxns
