// How the library makes its behaviours: in one block of the thread's pool, together with their count.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/Pool.h>

#include <memory>
#include <utility>

namespace otx {

// For plain data. The behaviour stands in a holder, which keeps std::allocate_shared from filling shared_from_this: that
// would take three atomic operations over a value's life, more than all the rest.
template <class Behaviour, class... Arguments>
COtxValue makePlain(Arguments&&... arguments) {
    struct Holder {
        explicit Holder(Arguments&&... passed) : behaviour(std::forward<Arguments>(passed)...) {}
        Behaviour behaviour;
    };
    auto holder = std::allocate_shared<Holder>(PoolAllocator<Holder>(), std::forward<Arguments>(arguments)...);
    COtxValueBehaviour* const behaviour = &holder->behaviour;
    return COtxValue(std::shared_ptr<COtxValueBehaviour>(std::move(holder), behaviour));
}

// For objects that have an identity: event sources, files.
template <class Behaviour, class... Arguments>
COtxValue makeLinked(Arguments&&... arguments) {
    return COtxValue(std::shared_ptr<COtxValueBehaviour>(
        std::allocate_shared<Behaviour>(PoolAllocator<Behaviour>(), std::forward<Arguments>(arguments)...)));
}

}  // namespace otx
