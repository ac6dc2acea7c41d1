// The names that there are, for whoever asked for another one.
#pragma once

#include <cstddef>
#include <string>

namespace velkotx::host {

// "; there are 'A', 'B'", of many the first ones; "; there are none".
template <class Items, class NameOf>
std::string knownNames(const Items& items, NameOf nameOf) {
    constexpr std::size_t most = 12;
    std::string text;
    std::size_t count = 0;
    for (const auto& item : items) {
        if (++count <= most)
            text += (count == 1 ? "; there are '" : ", '") + std::string(nameOf(item)) + "'";
    }
    if (count > most)
        text += " and " + std::to_string(count - most) + " more";
    return count == 0 ? "; there are none" : text;
}

}  // namespace velkotx::host
