// The terms that translate texts and localise quantities.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/Content.h>
#include <OTXi18nTerms/Placeholder.h>
#include <Trace.h>
#include <otx/value/COtxString.h>
#include <otx/value/IQuantity.h>
#include <schema/i18n.h>

#include <cstddef>

namespace i18n {

OTX_TERM(TranslationKeyLiteral, COtxString(static_cast<const std::string&>(value())))

// Each argument goes into the result of the one before, so that "{1}" in the text of the first is replaced by the second;
// and "$&" and the like in an argument have their meaning of a replacement. Both are meant.
template <>
COtxValue Translate_impl<Translate_base>::eval(otxns::OtxContext& context) const {
    COtxValue result = context.Translate(otxns::evaluate(translationKey(), context));
    if (!arguments().present()) return result;
    std::size_t index = 0;
    for (const otxns::Term& term : arguments()->arg()) {
        const COtxValue argument = otxns::evaluate(term, context);
        const COtxValue text = otxns::converted(argument, context, &COtxValue::ToString);
        const OTX::IString& current = result.String();
        result = COtxString(replacePlaceholder(current, index, text.String()));
        ++index;
    }
    return result;
}

template <>
COtxValue LocalizeQuantity_impl<LocalizeQuantity_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::evaluate(quantity(), context).Quantity().Localize();
}

template <>
COtxValue LocalizeQuantityToUnitGroup_impl<LocalizeQuantityToUnitGroup_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    const COtxValue original = otxns::evaluate(quantity(), context);
    const std::string& unitGroup = equivalentUnitGroup().href();
    return unitGroup.empty() ? original : original.Quantity().Localize(unitGroup);
}

}  // namespace i18n
