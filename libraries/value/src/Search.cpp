// Looks for a text within another one.
#include "Search.h"

#include <otx/Interruption.h>

#include <algorithm>
#include <cstring>

#include "Utf8.h"

namespace otx {

namespace {

// Bytes to go through between two looks at the interruption.
constexpr std::size_t stride = std::size_t{1} << 20;

// What a place is compared in first.
constexpr std::size_t beginning = 64;

}  // namespace

bool Search::Cursor::reaches(std::string_view text, std::size_t wanted) noexcept {
    while (place < wanted) {
        std::string_view rest = text.substr(place);
        takeCharacter(rest);
        place = text.size() - rest.size();
    }
    return place == wanted;
}

bool Search::isWhole(std::size_t place) noexcept {
    return isAligned_ || (begin_.reaches(text_, place) && end_.reaches(text_, place + pattern_.size()));
}

std::size_t Search::next(std::size_t from) {
    std::size_t place = find(from);
    while (place != none && !isWhole(place)) place = find(std::max(place + 1, begin_.place));
    return place;
}

std::size_t Search::find(std::size_t from) {
    const std::size_t step = std::max(stride, pattern_.size());
    for (; text_.size() - from >= pattern_.size(); from += step) {
        const std::size_t place = findIn(text_.substr(from, step + pattern_.size() - 1));
        work_ += place != none ? place + pattern_.size() : step;
        if (work_ >= stride) {
            work_ = 0;
            checkInterruption();
        }
        if (place != none) return from + place;
        if (text_.size() - from <= step) break;
    }
    return none;
}

// By the first byte, which is the quicker way in most texts, up to the first place that takes long to compare or to too many
// that are none. From there on by the C library, whose way is steady.
std::size_t Search::findIn(std::string_view window) {
    const std::string_view head = pattern_.substr(0, beginning);
    std::size_t place = 0;
    std::size_t failures = 0;
    while (!isSteady_) {
        if (window.size() - place < pattern_.size()) return none;
        const void* const hit = std::memchr(window.data() + place, pattern_.front(), window.size() - place - pattern_.size() + 1);
        if (hit == nullptr) return none;
        place = static_cast<std::size_t>(static_cast<const char*>(hit) - window.data());
        const std::string_view found = window.substr(place, pattern_.size());
        if (found == pattern_) return place;
        isSteady_ = found.starts_with(head) || ++failures > 16 + place / 16;
        ++place;
    }
    const void* const hit = memmem(window.data() + place, window.size() - place, pattern_.data(), pattern_.size());
    return hit == nullptr ? none : static_cast<std::size_t>(static_cast<const char*>(hit) - window.data());
}

}  // namespace otx
