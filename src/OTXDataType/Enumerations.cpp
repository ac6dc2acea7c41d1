// Enumerations that a document declares: their declaration, their data type and their terms.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXDataType/Entries.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <schema/DataType.h>

#include <utility>
#include <vector>

namespace DataType {

namespace {

[[noreturn]] void raiseUnknownName(const std::string& enumeration, const std::string& name) {
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                        "Enumeration " + enumeration + " does not contain value " + name);
}

COtxValue elementNamed(const std::string& enumeration, const std::string& name, otxns::OtxContext& context) {
    const COtxValue type = context.GetDatatype(enumeration);
    const Entries& entries = entriesOf(type);
    const auto found = entries.find(COtxString(name));
    if (found == entries.end()) raiseUnknownName(enumeration, name);
    return itemOf(enumeration, *found);
}

COtxValue firstElement(const std::string& enumeration, otxns::OtxContext& context) {
    const COtxValue type = context.GetDatatype(enumeration);
    const Entries& entries = entriesOf(type);
    if (entries.empty()) raiseUnknownName(enumeration, "");
    return itemOf(enumeration, *entries.begin());
}

COtxValue namesOf(const COtxValue& type) {
    std::vector<COtxValue> names;
    for (const auto& entry : entriesOf(type)) names.push_back(entry.first);
    return COtxList(std::move(names));
}

}  // namespace

// An element without a value has its position, not its predecessor's value plus one; this is meant.
template <>
COtxValue EnumerationSignature_impl<EnumerationSignature_base>::eval(otxns::OtxContext& context) const {
    Entries entries;
    long long position = 0;
    for (const EnumerationElementDeclaration& element : elements().element()) {
        if (element.name().present()) {
            COtxValue value = otxns::evaluateOr(element.realisation(), COtxInt(position), context);
            entries.insert_or_assign(COtxString(element.name().get()), std::move(value));
        }
        ++position;
    }
    return COtxMap(std::move(entries));
}

// Without init it is the smallest name, not the first that was declared; this is meant.
OTX_TERM(Enumeration, init().present() ? elementNamed(enumerationType(), init().get(), context) : firstElement(enumerationType(), context))
OTX_TERM(EnumerationLiteral, elementNamed(enumeration(), elementName(), context))
OTX_TERM(EnumerationValue, otxns::valueOfVariable(*this, context))
OTX_TERM(EnumerationGetEntryList, namesOf(context.GetDatatype(enumeration())))

template <>
COtxValue GetEnumerationByName_impl<GetEnumerationByName_base>::eval(otxns::OtxContext& context) const {
    const COtxValue type = context.GetDatatype(enumeration());
    const COtxValue name = otxns::evaluate(elementName(), context);
    const Entries& entries = entriesOf(type);
    const auto found = findName(entries, name, context);
    if (found != entries.end()) return itemOf(enumeration(), *found);
    // No blank ahead of "does", unlike the text of the other terms; this is meant.
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                        "Enumeration " + enumeration() + "does not contain value " + otxns::textOf(name, context));
}

template <>
COtxValue GetEnumerationByValue_impl<GetEnumerationByValue_base>::eval(otxns::OtxContext& context) const {
    const COtxValue type = context.GetDatatype(enumeration());
    const COtxValue wanted = otxns::evaluate(value(), context);
    const Entries& entries = entriesOf(type);
    const auto found = findValue(entries, wanted, context);
    if (found == entries.end()) throw COtxException(OTX::Exceptions_e::OutOfBoundsException);
    return itemOf(enumeration(), *found);
}

// Of a type that is no map neither this term nor the next evaluates its operand.
template <>
COtxValue EnumerationContainsName_impl<EnumerationContainsName_base>::eval(otxns::OtxContext& context) const {
    const COtxValue type = context.GetDatatype(enumeration());
    if (type.Type() != OTX::ValueType::Map) return COtxBool(false);
    const COtxValue wanted = otxns::evaluate(name(), context);
    const Entries& entries = entriesOf(type);
    return COtxBool(findName(entries, wanted, context) != entries.end());
}

template <>
COtxValue EnumerationContainsValue_impl<EnumerationContainsValue_base>::eval(otxns::OtxContext& context) const {
    const COtxValue type = context.GetDatatype(enumeration());
    if (type.Type() != OTX::ValueType::Map) return COtxBool(false);
    const COtxValue wanted = otxns::evaluate(value(), context);
    const Entries& entries = entriesOf(type);
    return COtxBool(findValue(entries, wanted, context) != entries.end());
}

}  // namespace DataType
