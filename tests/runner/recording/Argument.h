// The arguments of a host's operation as values.
#pragma once

#include <otx/value/COtxBool.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxValue.h>

#include <concepts>
#include <string>

namespace documents {

inline COtxValue asArgument(const COtxValue& value) { return value; }
inline COtxValue asArgument(const std::string& text) { return COtxString(text); }
inline COtxValue asArgument(OTX::ValueType type) { return COtxInt(static_cast<long long>(type)); }
inline COtxValue asArgument(std::same_as<bool> auto truth) { return COtxBool(truth); }
template <std::integral Number>
    requires(!std::same_as<Number, bool>)
COtxValue asArgument(Number number) {
    return COtxInt(static_cast<long long>(number));
}

}  // namespace documents
