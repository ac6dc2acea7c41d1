// Makes the cells of variables.
#pragma once

#include <otx/value/OtxVariable.h>
#include <otx/value/Pool.h>

#include <memory>

namespace otxns {

// A cell of the class Variable with that value; its memory comes from the pool, since every call makes some.
template <class Variable>
std::shared_ptr<Variable> makeCell(const COtxValue& value) {
    return std::allocate_shared<Variable>(otx::PoolAllocator<Variable>(), value);
}

}  // namespace otxns
