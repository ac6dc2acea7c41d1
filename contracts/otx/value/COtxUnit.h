// The Unit value.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/IUnit.h>

#include <string>

// A unit of measurement by its name; the default is the empty unit.
class OTX_API COtxUnit : public COtxValue {
public:
    COtxUnit();
    explicit COtxUnit(const std::string& name);
};
