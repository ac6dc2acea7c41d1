// How large a regular expression becomes when it is compiled.
#pragma once

#include <cstddef>
#include <string_view>

namespace otx {

// The number of characters of an ECMAScript expression once its bounded repetitions are written out, "(ab){3}" being some
// nine: what a compiler that expands them needs. The largest number for what is beyond counting. Doesn't recurse, and
// bears expressions with faults.
std::size_t expandedSize(std::wstring_view expression);

}  // namespace otx
