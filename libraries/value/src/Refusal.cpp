// The failures that the library raises.
#include "Refusal.h"

#include <otx/value/COtxException.h>

namespace otx {

void refuse(const char* operation, OTX::ValueType type) {
    fail(OTX::Exceptions_e::TypeMismatchException,
         "Operation " + std::string(operation) + " is not supported by type " + OTX::typeName(type));
}

void refuse(const char* operation, OTX::ValueType left, OTX::ValueType right) {
    fail(OTX::Exceptions_e::TypeMismatchException, "Operation " + std::string(operation) +
                                                       " is not supported by types " + OTX::typeName(left) + " and " +
                                                       OTX::typeName(right));
}

void fail(OTX::Exceptions_e kind, const std::string& text) { throw COtxException(kind, text); }

}  // namespace otx
