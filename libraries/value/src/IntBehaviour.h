// The library's own Integer.
#pragma once

#include <otx/value/COtxInt.h>

namespace otx {

// Final, so that the handle may read the number without asking.
class IntegerBehaviour final : public COtxIntBehaviour {
public:
    IntegerBehaviour(long long value, COtxInt::Radix radix) : COtxIntBehaviour(value, radix, Native::Integer) {}
};

}  // namespace otx
