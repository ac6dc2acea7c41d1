// The names under which classes show in messages.
#pragma once

#include <otx/log/Names.h>

#include <string>
#include <typeinfo>

namespace otxns {

// The run-time class of an object of the tree, such as "class otxns::Node_impl<class otxns::Node_base>".
template <class Object>
std::string runtimeClass(const Object& object) {
    return Hvt::className(typeid(object).name());
}

// What follows the first "::", such as "Round"; the whole name if there is none.
inline std::string withoutNamespace(const std::string& className) {
    const auto mark = className.find("::");
    return mark != std::string::npos ? className.substr(mark + 2) : className;
}

}  // namespace otxns
