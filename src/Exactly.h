// Whether an object of the tree is of one very class.
#pragma once

#include <typeinfo>

namespace otxns {

// The object as its class, if it is of that very class: a class that someone derives from it has its own operations.
template <class Class, class Base>
const Class* exactly(const Base& object) noexcept {
    return &typeid(object) == &typeid(Class) ? static_cast<const Class*>(&object) : nullptr;
}

}  // namespace otxns
