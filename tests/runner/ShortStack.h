// A thread with less stack than the main one.
#pragma once

#include <functional>

namespace documents {

// Does the work on a thread with a stack of 2 MB, waits for it, and throws what it threw.
void onShortStack(const std::function<void()>& work);

}  // namespace documents
