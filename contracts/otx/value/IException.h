// What an OTX exception tells about itself.
#pragma once

#include <otx/Export.h>
#include <otx/value/Exceptions_e.h>

#include <string>
#include <typeinfo>

namespace OTX {

// Behind COtxValue::Exception(). Immutable, so any thread may read it; the references live as long as the value.
class OTX_API IException {
public:
    virtual Exceptions_e Kind() const = 0;
    // The kind's class name, such as "ArithmeticException".
    virtual const std::string& Name() const = 0;
    virtual const std::string& Qualifier() const = 0;
    virtual const std::string& Text() const = 0;
    // The schema class registered for the kind with COtxExceptions::Add; typeid(void) when there is none.
    virtual const std::type_info& Type() const = 0;

protected:
    ~IException() = default;
};

}  // namespace OTX
