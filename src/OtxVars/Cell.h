// Makes the cells of variables.
#pragma once

#include <otx/value/OtxVariable.h>
#include <otx/value/Pool.h>

#include <memory>
#include <utility>

namespace otxns {

// A cell of the class Variable with that value and what else it is made of; its memory comes from the pool, since every call
// makes some.
template <class Variable, class... More>
std::shared_ptr<Variable> makeCell(COtxValue value, More... more) {
    return std::allocate_shared<Variable>(otx::PoolAllocator<Variable>(), std::move(value), more...);
}

}  // namespace otxns
