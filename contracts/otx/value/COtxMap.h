// The Map value.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <string>

// A map of handles in the order of COtxValue::operator<, reached and changed through COtxValue::Map(). The constructors
// copy handles, so keys and values are shared with the map they came from.
class OTX_API COtxMap : public COtxValue {
public:
    COtxMap();
    // Copies the content: unlike copies of other handles, the two maps are independent.
    COtxMap(const COtxMap& other);
    COtxMap(COtxMap&& other) noexcept = default;
    explicit COtxMap(const std::map<COtxValue, COtxValue>& entries);
    explicit COtxMap(std::map<COtxValue, COtxValue>&& entries);
    // The keys become Strings.
    explicit COtxMap(const std::map<const std::string, COtxValue>& entries);
    ~COtxMap() override = default;

    COtxMap& operator=(const COtxMap& other);
    COtxMap& operator=(COtxMap&& other) noexcept = default;
};
