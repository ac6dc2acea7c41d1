// Maker of the library's own Exception.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/Exceptions_e.h>

#include <string>

namespace otx {

COtxValue makeException(OTX::Exceptions_e kind, const std::string& qualifier, const std::string& text);

}  // namespace otx
