// An element of an enumeration that a document declares.
#pragma once

#include <otx/value/COtxValue.h>

// Immutable. ToString answers the element's name, ToInteger and the other conversions those of its value. Items are
// equal when type, name and value are.
class OTX_API COtxEnumerationItem : public COtxValue {
public:
    // The enumeration's name and the element's name, Strings both, and the element's value.
    COtxEnumerationItem(const COtxValue& type, const COtxValue& name, const COtxValue& value);
};
