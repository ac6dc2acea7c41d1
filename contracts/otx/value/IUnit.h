// The operations of a Unit value.
#pragma once

#include <otx/Export.h>

#include <string>

namespace OTX {

// Behind COtxValue::Unit(). Immutable.
class OTX_API IUnit {
public:
    // The unit's name, such as "V"; empty for the empty unit.
    virtual const std::string& Name() const = 0;

protected:
    ~IUnit() = default;
};

}  // namespace OTX
