// The List value.
#pragma once

#include <otx/value/COtxValue.h>

#include <vector>

// A vector of handles, reached and changed through COtxValue::List(). The constructors copy handles, so the elements are
// shared with the vector they came from.
class OTX_API COtxList : public COtxValue {
public:
    COtxList();
    explicit COtxList(const std::vector<COtxValue>& items);
    explicit COtxList(std::vector<COtxValue>&& items);
};
