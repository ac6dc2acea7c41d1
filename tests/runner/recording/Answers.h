// The answers of the recording host that don't depend on what it is asked by whom.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace documents {

// The text of a value, whatever its type.
std::string textOf(const COtxValue& value);

// Whether something is asked for that isn't there: by the name "missing".
bool isMissing(const COtxValue& name);

// What is answered then: a String, which is no handle of any kind.
COtxValue nothing();

// The value of every parameter, by the type that is asked for.
COtxValue sampleOf(OTX::ValueType type);

}  // namespace documents
