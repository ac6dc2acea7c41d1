// The terms and data types of numbers with units.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <Trace.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxUnit.h>
#include <otx/value/IQuantity.h>
#include <schema/Quantities.h>

namespace Quantities {

namespace {

constexpr int standardPrecision = 16;

}  // namespace

template <>
COtxValue CreateQuantity_impl<CreateQuantity_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    const COtxValue number = otxns::settled(otxns::evaluate(numeral(), context), context);
    const COtxValue unit = otxns::evaluate(displayUnit(), context);
    if (displayPrecision().present()) {
        const long long precision = otxns::evaluateInteger(displayPrecision().get(), context);
        return COtxQuantity(number, unit, static_cast<int>(precision));
    }
    const COtxValue quantity = number.ToQuantity();
    return COtxQuantity(quantity, unit, quantity.Quantity().GetPrecision());
}

// Unlike CreateQuantity it converts neither the number nor the precision; this is meant.
template <>
COtxValue QuantityLiteral_impl<QuantityLiteral_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    const COtxValue number = otxns::settled(otxns::evaluate(numeral(), context), context);
    const COtxValue unit = otxns::evaluate(displayUnit(), context);
    int precision = standardPrecision;
    if (displayPrecision().present())
        precision = static_cast<int>(otxns::evaluate(displayPrecision().get(), context).Int());
    return COtxQuantity(number, unit, precision);
}

template <>
COtxValue GetDisplayValue_impl<GetDisplayValue_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::ask(context, quantity(), &COtxValue::Quantity, &OTX::IQuantity::GetDisplayValue);
}

template <>
COtxValue GetDisplayUnit_impl<GetDisplayUnit_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::ask(context, quantity(), &COtxValue::Quantity, &OTX::IQuantity::GetDisplayUnit);
}

template <>
COtxValue GetBaseUnit_impl<GetBaseUnit_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::ask(context, quantity(), &COtxValue::Quantity, &OTX::IQuantity::GetBaseUnit);
}

template <>
COtxValue UnitLiteral_impl<UnitLiteral_base>::eval(otxns::OtxContext&) const {
    OTX_TRACE(4, "");
    return COtxUnit(value().href());
}

template <>
COtxValue QuantityValue_impl<QuantityValue_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::valueOfVariable(*this, context);
}

template <>
COtxValue UnitValue_impl<UnitValue_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, "");
    return otxns::valueOfVariable(*this, context);
}

OTX_TERM(Quantity, otxns::initialValue(*this, context, [] { return COtxQuantity(0.0, COtxUnit(), standardPrecision); }))
OTX_TERM(Unit, otxns::initialValue(*this, context, [] { return COtxUnit(); }))

}  // namespace Quantities
