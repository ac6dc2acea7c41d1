// The terms that take strings apart and put them together. All operands are evaluated before the string is asked.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreTerms/Asking.h>
#include <Trace.h>
#include <otx/Interruption.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <schema/StringUtil.h>

#include <string>
#include <utility>

namespace StringUtil {

namespace {

// Throws OutOfBoundsException. A bad count is told as the index too; this is meant.
void requirePlace(const OTX::IString& text, const char* term, long long index, long long count = 0) {
    const long long length = text.Length().Int();
    if (index >= 0 && count >= 0 && index <= length) return;
    // The words "not with" are meant.
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                        std::string(term) + " index " + std::to_string(index) +
                            " is not with the string. String length = " + std::to_string(length));
}

// A match may take long, so that a flow that is cancelled meanwhile leaves it.
COtxValue match(otxns::OtxContext& context, const COtxValue& regexp, const COtxValue& text) {
    const otxns::OtxFlow& flow = context.OwnFlow();
    const auto leaveIfCancelled = [&flow] {
        if (flow.state == otxns::FlowState::cancelled) throw velkotx::CancelException();
    };
    const otx::InterruptionScope scope(leaveIfCancelled);
    return text.String().Match(regexp);
}

}  // namespace

OTX_TERM(LengthOfString, otxns::evaluate(string(), context).String().Length())
OTX_TERM(ToUpper, otxns::evaluate(string(), context).String().ToUpper())
OTX_TERM(ToLower, otxns::evaluate(string(), context).String().ToLower())

OTX_TERM(IndexOf, otxns::evaluateTwo(string(), pattern(), context, [](const COtxValue& text, const COtxValue& sought) {
             return text.String().IndexOf(sought);
         }))
OTX_TERM(SplitString,
         otxns::evaluateTwo(string(), delimiter(), context, [](const COtxValue& text, const COtxValue& mark) {
             return text.String().Split(mark);
         }))
// The expression is evaluated first; this is meant.
OTX_TERM(MatchToRegularExpression,
         otxns::evaluateTwo(regexp(), string(), context, [&](const COtxValue& expression, const COtxValue& text) {
             return match(context, expression, text);
         }))

template <>
COtxValue SubString_impl<SubString_base>::eval(otxns::OtxContext& context) const {
    const COtxValue text = otxns::evaluate(string(), context);
    const COtxValue first = otxns::evaluate(index(), context).ToInteger();
    const COtxValue number = otxns::evaluate(count(), context).ToInteger();
    requirePlace(text.String(), "SubString", first.Int(), number.Int());
    return text.String().SubString(first, number);
}

template <>
COtxValue ReplaceSubString_impl<ReplaceSubString_base>::eval(otxns::OtxContext& context) const {
    const COtxValue text = otxns::evaluate(string(), context);
    const COtxValue written = otxns::evaluate(replacement(), context);
    const COtxValue first = otxns::evaluate(index(), context).ToInteger();
    requirePlace(text.String(), "ReplaceSubString", first.Int());
    return text.String().Replace(written, first);
}

// Other values than strings are dropped, not converted; this is meant.
template <>
COtxValue StringConcatenate_impl<StringConcatenate_base>::eval(otxns::OtxContext& context) const {
    std::string text;
    for (const otxns::StringTerm& part : string()) {
        const COtxValue value = otxns::evaluate(part, context);
        if (value.Type() == OTX::ValueType::String)
            text += value.String();
        else
            OTX_TRACE(1, "Not a string type, ignored");
    }
    return COtxString(std::move(text));
}

}  // namespace StringUtil
