// The Unit value.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/IUnit.h>

#include <string>

// A unit of measurement by its name; the default is the empty unit. Any name makes a unit: one that isn't known can
// be shown, and kind 17 (UnknownUnitException) comes when it is to be converted. Units are equal when their names
// are.
class OTX_API COtxUnit : public COtxValue {
public:
    COtxUnit();
    explicit COtxUnit(const std::string& name);
};
