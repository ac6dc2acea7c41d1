// Free functions over values: copies and look-ups in maps with string keys.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <string>

namespace OTX {

// A value that shares nothing mutable with its argument. What a value holds twice, the copy holds twice, so a value that
// contains itself is copied as such. Handles on objects outside (channels, services, event sources) are shared. Throws
// kind 2 for values nested too deeply for the stack.
OTX_API COtxValue DeepCopy(const COtxValue& value);

// The entry of a map with string keys. Throws kind 2 for a missing key, kind 5 for a value that is no map or an entry of
// another type; ValueType::Empty accepts every type.
OTX_API COtxValue GetParameter(const COtxValue& map, const std::string& key, ValueType type);

// The same with the answer for a missing key. The empty value counts as a map without entries.
OTX_API COtxValue GetOptionalParameter(const COtxValue& map, const std::string& key, const COtxValue& fallback,
                                       ValueType type);

// A map with string keys as a plain map; the handles are shared. The empty value counts as a map without entries. Throws
// kind 5 for any other value and for keys that are no strings.
OTX_API std::map<const std::string, COtxValue> ValMap(const COtxValue& map);

}  // namespace OTX
