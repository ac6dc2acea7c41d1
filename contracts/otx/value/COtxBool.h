// The Boolean value.
#pragma once

#include <otx/value/COtxValue.h>

class OTX_API COtxBool : public COtxValue {
public:
    explicit COtxBool(bool value);
};
