// Structures that a document declares: their declaration, their data type and their terms.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXDataType/Entries.h>
#include <otx/value/COtxMap.h>
#include <otx/value/Functions.h>
#include <schema/DataType.h>

#include <utility>

namespace DataType {

// The prototype, from which each variable of the type is copied.
template <>
COtxValue StructureSignature_impl<StructureSignature_base>::eval(otxns::OtxContext& context) const {
    Entries entries;
    for (const StructureElementDeclaration& element : elements().element()) {
        if (!element.realisation().present() || !element.name().present()) continue;
        COtxValue value = element.realisation()->dataType().eval(context);
        entries.insert_or_assign(COtxString(element.name().get()), std::move(value));
    }
    return COtxMap(std::move(entries));
}

OTX_TERM(Structure, OTX::DeepCopy(context.GetDatatype(structureType())))
OTX_TERM(StructureCreate, OTX::DeepCopy(context.GetDatatype(structureType())))
OTX_TERM(StructureValue, otxns::valueOfVariable(*this, context))

template <>
COtxValue StructureCopy_impl<StructureCopy_base>::eval(otxns::OtxContext& context) const {
    const COtxValue original = otxns::evaluate(otherStructure(), context);
    return otxns::lookAt(original, context, [&] { return OTX::DeepCopy(original); });
}

}  // namespace DataType
