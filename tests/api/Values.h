// Values as the tests write and read them: as JSON.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <string>

namespace api {

inline std::string json(const COtxValue& value) { return value.ToJSON().String(); }

inline COtxValue value(const std::string& text) { return OTX::FromJSON(text); }

}  // namespace api
