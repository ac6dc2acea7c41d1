// Destroying what values hold without running out of stack.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <vector>

namespace otx {

// Called by the destructors of behaviours that hold values. Values within values are destroyed by recursion for some
// levels and from a list of work after that, so that a value nested a million deep dies like any other. Never throws; any
// thread.
void demolish(std::vector<COtxValue>& content) noexcept;
void demolish(std::map<COtxValue, COtxValue>& content) noexcept;
void demolish(COtxValue& content) noexcept;

}  // namespace otx
