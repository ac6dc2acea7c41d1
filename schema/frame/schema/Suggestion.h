// What an unknown type name was perhaps meant to be.
#pragma once

#include <string>

namespace schema {

// A registered name that differs from the given one by a slip of the pen or two, or in case only, in the same namespace;
// else "namespace#name" of one that has the same name in another. Empty if there is none.
std::string typeLike(const std::string& name, const std::string& space);

}  // namespace schema
