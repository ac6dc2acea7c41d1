// The characters of a text, and what is known of them.
#include "Characters.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "Utf8.h"

namespace otx {

namespace {

// Sixteen bytes that one instruction compares.
using Block = signed char __attribute__((vector_size(16)));
constexpr std::size_t blockSize = sizeof(Block);

// Bytes that begin a character in a text that is well-formed: all but 0x80 to 0xBF, the least of signed numbers.
constexpr signed char leastBeginning = -64;
bool begins(char byte) noexcept { return static_cast<signed char>(byte) >= leastBeginning; }

// The sum of a block's numbers, of which none is negative.
std::size_t sumOf(const Block& numbers) noexcept {
    constexpr std::uint64_t everyOther = 0x00FF00FF00FF00FF;
    std::array<std::uint64_t, blockSize / 8> words;
    std::memcpy(words.data(), &numbers, blockSize);
    std::size_t sum = 0;
    for (const std::uint64_t word : words)
        sum += ((word & everyOther) + (word >> 8 & everyOther)) * 0x0001000100010001 >> 48;
    return sum;
}

// How many characters begin in up to 127 blocks.
std::size_t beginningsIn(const char* bytes, std::size_t blocks) noexcept {
    Block each{};
    for (std::size_t number = 0; number < blocks; ++number) {
        Block block;
        std::memcpy(&block, bytes + number * blockSize, blockSize);
        each -= block >= leastBeginning;  // -1 for each that does
    }
    return sumOf(each);
}

constexpr std::size_t blocksAtOnce = 127;

std::size_t countBeginnings(std::string_view text) noexcept {
    std::size_t count = 0;
    while (text.size() >= blockSize) {
        const std::size_t blocks = std::min(text.size() / blockSize, blocksAtOnce);
        count += beginningsIn(text.data(), blocks);
        text.remove_prefix(blocks * blockSize);
    }
    return count + static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

// The place of that position in a well-formed text, its size past the end. By many blocks at a time first, by bytes last.
std::size_t placeOfBeginning(std::string_view text, std::size_t position) noexcept {
    std::size_t place = 0;
    for (const std::size_t blocks : {std::size_t{32}, std::size_t{4}, std::size_t{1}}) {
        const std::size_t step = blocks * blockSize;
        while (position > 0 && place + step <= text.size()) {
            const std::size_t count = beginningsIn(text.data() + place, blocks);
            if (count > position) break;
            position -= count;
            place += step;
        }
    }
    for (; place < text.size(); ++place) {
        if (!begins(text[place])) continue;
        if (position == 0) break;
        --position;
    }
    return place;
}

}  // namespace

std::uint64_t Characters::look() const noexcept {
    std::uint64_t count = 0;
    bool isWellFormed = true;
    for (std::string_view rest = text_; !rest.empty();) {
        const std::size_t plain = asciiPrefix(rest);
        count += plain;
        rest.remove_prefix(plain);
        for (int next = 0; next < 8 && !rest.empty(); ++next, ++count) {
            const std::size_t length = lengthOfCharacter(rest);
            isWellFormed = isWellFormed && length > 0;
            rest.remove_prefix(std::max<std::size_t>(length, 1));
        }
    }
    const std::uint64_t found = count * 4 + (isWellFormed ? wellFormed : 0) + isKnown;
    if (known_ != nullptr) known_->store(found, std::memory_order_relaxed);
    return found;
}

std::optional<std::size_t> Characters::placeOf(std::size_t position) const noexcept {
    if (position > text_.size() || position > count()) return std::nullopt;
    return placeBehind(0, position);
}

std::size_t Characters::placeBehind(std::size_t place, std::size_t characters) const noexcept {
    const std::size_t left = text_.size() - place;
    if (characters >= left) return text_.size();
    if (areBytes()) return place + characters;
    if (areWellFormed()) return place + placeOfBeginning(from(place), characters);
    std::string_view rest = from(place);
    for (; characters > 0 && !rest.empty(); --characters) takeCharacter(rest);
    return text_.size() - rest.size();
}

std::size_t Characters::positionOf(std::size_t place) const noexcept {
    if (areBytes()) return place;
    const std::string_view before = std::string_view(text_).substr(0, place);
    if (areWellFormed()) return countBeginnings(before);
    std::size_t position = 0;
    for (std::string_view rest = text_; text_.size() - rest.size() < place; ++position) takeCharacter(rest);
    return position;
}

}  // namespace otx
