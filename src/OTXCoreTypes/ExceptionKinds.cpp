// Ties each kind of OTX exception to the schema class that a Handler names for it.
#include <otx/value/COtxExceptions.h>
#include <schema/core.h>

#include <typeinfo>
#include <utility>

namespace otxns {

namespace {

using OTX::Exceptions_e;

// One line a kind. Classes that aren't here exist in documents only: no exception is of their kind.
const std::pair<Exceptions_e, const std::type_info*> kinds[] = {
    {Exceptions_e::Exception, &typeid(Exception)},
    {Exceptions_e::InvalidReferenceException, &typeid(InvalidReferenceException)},
    {Exceptions_e::OutOfBoundsException, &typeid(OutOfBoundsException)},
    {Exceptions_e::ArithmeticException, &typeid(ArithmeticException)},
    {Exceptions_e::AmbiguousCallException, &typeid(AmbiguousCallException)},
    {Exceptions_e::TypeMismatchException, &typeid(TypeMismatchException)},
    {Exceptions_e::UserException, &typeid(UserException)},
};

// Before any document is loaded.
[[maybe_unused]] const bool registered = [] {
    for (const auto& [kind, type] : kinds) COtxExceptions::Add(kind, *type);
    return true;
}();

}  // namespace

}  // namespace otxns
