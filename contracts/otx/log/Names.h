// Names of classes and functions in the form that the trace shows.
#pragma once

#include <otx/Export.h>

#include <string>

namespace Hvt {

// The class name of a raw type name (std::type_info::name()), in the form
// "class otxns::Node_impl<class otxns::Node_base>". Any thread; costs a demangling, so keep the result.
OTX_API std::string className(const char* rawName);

// The qualified name of a function from __PRETTY_FUNCTION__, in the form
// "otxns::Term_impl<class otxns::Term_base>::eval". Understands g++ and clang. Any thread; keep the result.
OTX_API std::string functionName(const char* prettyFunction);

}  // namespace Hvt
