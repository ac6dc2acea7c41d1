// Looking into the value of a declared data type.
#pragma once

#include <OTXCoreTerms/Content.h>
#include <otx/value/COtxEnumerationItem.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <map>
#include <string>

namespace DataType {

using Entries = std::map<COtxValue, COtxValue>;

// The entries of an enumeration or a structure in the order of their names; none for a declaration of another kind. The
// value is never changed after its declaration, so the reference is good as long as the value.
inline const Entries& entriesOf(const COtxValue& type) {
    static const Entries none;
    return type.Type() == OTX::ValueType::Map ? type.Map() : none;
}

// The entry of that name, or the end.
inline Entries::const_iterator findName(const Entries& entries, const COtxValue& name, otxns::OtxContext& context) {
    return otxns::lookAt(name, context, [&] { return entries.find(name); });
}

// The first entry with that value, or the end.
inline Entries::const_iterator findValue(const Entries& entries, const COtxValue& value, otxns::OtxContext& context) {
    return otxns::lookAt(value, context, [&] {
        return std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.second == value; });
    });
}

inline COtxValue itemOf(const std::string& enumeration, const Entries::value_type& entry) {
    return COtxEnumerationItem(COtxString(enumeration), entry.first, entry.second);
}

}  // namespace DataType
