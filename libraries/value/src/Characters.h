// The characters of a text, and what is known of them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class COtxValue;

namespace otx {

// What one look at a text that never changes has found; any thread may look. Empty before the first look.
using KnownCharacters = std::atomic<std::uint64_t>;

// A view of a text: positions are those of characters (code points), places those of bytes. A byte that is no UTF-8 counts as
// one character. Throws nothing.
class Characters {
public:
    Characters(const std::string& text, KnownCharacters& known) noexcept : text_(text), known_(&known) {}
    explicit Characters(const std::string& text) noexcept : text_(text) {}

    const std::string& text() const noexcept { return text_; }

    std::size_t count() const noexcept { return found() / 4; }
    bool areWellFormed() const noexcept { return (found() & wellFormed) != 0; }

    // The place of a position: the text's size for that at its end, nothing for one past it.
    std::optional<std::size_t> placeOf(std::size_t position) const noexcept;
    // The place so many characters behind a place at which one begins; the text's size past its end.
    std::size_t placeBehind(std::size_t place, std::size_t characters) const noexcept;
    // The position of the character that begins at a place.
    std::size_t positionOf(std::size_t place) const noexcept;

private:
    // Of what was found, below the count.
    static constexpr std::uint64_t isKnown = 1;
    static constexpr std::uint64_t wellFormed = 2;

    std::uint64_t found() const noexcept {
        const std::uint64_t before = known_ != nullptr ? known_->load(std::memory_order_relaxed) : 0;
        return before != 0 ? before : look();
    }
    std::uint64_t look() const noexcept;
    // Whether each byte is a character of its own.
    bool areBytes() const noexcept { return count() == text_.size(); }
    std::string_view from(std::size_t place) const noexcept { return std::string_view(text_).substr(place); }

    const std::string& text_;
    KnownCharacters* const known_ = nullptr;
};

// Those of a String value. Throws kind 5 for another one.
Characters charactersOf(const COtxValue& string);

}  // namespace otx
