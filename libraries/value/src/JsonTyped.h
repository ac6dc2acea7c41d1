// Values of the types that JSON doesn't carry natively, from the objects that stand for them.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <string>

namespace otx {

// An object that has a type's tag but not what that type needs.
struct JsonMismatch {
    std::string reason;
};

// The value that an object with these entries stands for: one of the tagged types, or the Map itself. Handles on objects
// outside can't be read back and stay Maps. Throws JsonMismatch.
COtxValue typedJson(std::map<COtxValue, COtxValue>&& entries);

}  // namespace otx
