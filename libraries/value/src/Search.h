// Looks for a text within another one.
#pragma once

#include <cstddef>
#include <string_view>

#include "Characters.h"

namespace otx {

// The places of a pattern that isn't empty, each of them where a character begins and before one does. In time in proportion to
// both texts, and to be interrupted (otx/Interruption.h).
class Search {
public:
    static constexpr std::size_t none = std::string_view::npos;

    Search(const Characters& text, const Characters& pattern) noexcept
        : text_(text.text()), pattern_(pattern.text()), isAligned_(pattern.areWellFormed()) {}

    // The first place from that one on, which is not ahead of what an earlier call answered.
    std::size_t next(std::size_t from);

private:
    // Goes through the text by characters.
    struct Cursor {
        bool reaches(std::string_view text, std::size_t wanted) noexcept;
        std::size_t place = 0;
    };

    std::size_t find(std::size_t from);
    std::size_t findIn(std::string_view window);
    bool isWhole(std::size_t place) noexcept;

    const std::string_view text_;
    const std::string_view pattern_;
    // Well-formed, it is found nowhere but at characters.
    const bool isAligned_;
    bool isSteady_ = false;
    std::size_t work_ = 0;
    Cursor begin_;
    Cursor end_;
};

}  // namespace otx
