// The terms that take strings apart and put them together. All operands are evaluated before the string is asked.
#include <OTXContext/OtxContext.h>
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/Interruptible.h>
#include <SmallVector.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <schema/StringUtil.h>

#include <string>
#include <utility>

namespace StringUtil {

namespace {

COtxValue evaluateToInteger(const otxns::Term& term, otxns::OtxContext& context) {
    COtxValue value = otxns::evaluate(term, context);
    return value.Type() == OTX::ValueType::Integer ? value : otxns::converted(value, context, &COtxValue::ToInteger);
}

// Throws OutOfBoundsException. A bad count is told as the index too; this is meant.
void requirePlace(const OTX::IString& text, const char* term, long long index, long long count = 0) {
    // No character has more than four bytes, which spares counting them.
    const bool isNear = index <= static_cast<long long>(text.size() / 4);
    if (index >= 0 && count >= 0 && isNear) return;
    const long long length = text.Length().Int();
    if (index >= 0 && count >= 0 && index <= length) return;
    // The words "not with" are meant.
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                        std::string(term) + " index " + std::to_string(index) +
                            " is not with the string. String length = " + std::to_string(length));
}

}  // namespace

OTX_TERM(LengthOfString, otxns::evaluate(string(), context).String().Length())
OTX_TERM(ToUpper, otxns::evaluate(string(), context).String().ToUpper())
OTX_TERM(ToLower, otxns::evaluate(string(), context).String().ToLower())

OTX_TERM(IndexOf, otxns::evaluateTwo(string(), pattern(), context, [&](const COtxValue& text, const COtxValue& sought) {
             return otxns::interruptibly(context, [&] { return text.String().IndexOf(sought); });
         }))
OTX_TERM(SplitString,
         otxns::evaluateTwo(string(), delimiter(), context, [&](const COtxValue& text, const COtxValue& mark) {
             return otxns::interruptibly(context, [&] { return text.String().Split(mark); });
         }))
// The expression is evaluated first; this is meant.
OTX_TERM(MatchToRegularExpression,
         otxns::evaluateTwo(regexp(), string(), context, [&](const COtxValue& expression, const COtxValue& text) {
             return otxns::interruptibly(context, [&] { return text.String().Match(expression); });
         }))

template <>
COtxValue SubString_impl<SubString_base>::eval(otxns::OtxContext& context) const {
    const COtxValue text = otxns::evaluate(string(), context);
    const COtxValue first = evaluateToInteger(index(), context);
    const COtxValue number = evaluateToInteger(count(), context);
    requirePlace(text.String(), "SubString", first.Int(), number.Int());
    return text.String().SubString(first, number);
}

template <>
COtxValue ReplaceSubString_impl<ReplaceSubString_base>::eval(otxns::OtxContext& context) const {
    const COtxValue text = otxns::evaluate(string(), context);
    const COtxValue written = otxns::evaluate(replacement(), context);
    const COtxValue first = evaluateToInteger(index(), context);
    requirePlace(text.String(), "ReplaceSubString", first.Int());
    return text.String().Replace(written, first);
}

// Other values than strings are dropped, not converted; this is meant.
template <>
COtxValue StringConcatenate_impl<StringConcatenate_base>::eval(otxns::OtxContext& context) const {
    otxns::SmallVector<COtxValue, 8> parts;
    std::size_t size = 0;
    for (const otxns::StringTerm& part : string()) {
        COtxValue value = otxns::evaluate(part, context);
        if (value.Type() == OTX::ValueType::String) {
            size += value.String().size();
            parts.push_back(std::move(value));
        } else {
            OTX_TRACE(1, "Not a string type, ignored");
        }
    }
    std::string text;
    text.reserve(size);
    for (const COtxValue& part : parts) text += part.String();
    return COtxString(std::move(text));
}

}  // namespace StringUtil
