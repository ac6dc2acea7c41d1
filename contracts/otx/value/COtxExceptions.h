// The registry that ties exception kinds to the schema classes which handlers name.
#pragma once

#include <otx/Export.h>
#include <otx/value/Exceptions_e.h>

#include <string>
#include <typeinfo>

// Filled once by the document layer during static initialisation; any thread may read and add.
class OTX_API COtxExceptions {
public:
    // The type's object must live as long as the process. A second registration of a kind replaces the first.
    static void Add(OTX::Exceptions_e kind, const std::type_info& type);
    // typeid(void) for a kind that nobody registered.
    static const std::type_info& Type(OTX::Exceptions_e kind);
    // The class name of a kind, such as "ArithmeticException"; "Exception" for a number that is no kind.
    static const std::string& Name(OTX::Exceptions_e kind);
    // The kind of that class name; false when there is none.
    static bool Find(const std::string& name, OTX::Exceptions_e& kind);
};
