// Numbers truncations and changed bytes.
#include "Cases.h"

#include <array>

namespace sweep {

namespace {

constexpr std::size_t largestSmall = 4096;
constexpr std::size_t wordSize = 4;

// What a byte's value is combined with by exclusive or.
constexpr std::size_t otherValues = 255;
constexpr std::size_t bits = 8;
constexpr std::array<unsigned char, 5> byteEdges{0x00, 0x01, 0x7F, 0x80, 0xFF};
constexpr std::size_t largeFileChanges = bits + byteEdges.size();

constexpr std::array<std::uint32_t, 7> wordEdges{0, 1, 0xFFFF, 0x00FFFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
// Beside these: one more and one less than it was, and the length of the file.
constexpr std::size_t wordChanges = wordEdges.size() + 3;

}  // namespace

bool Cases::isSmall() const { return file_.size() <= largestSmall; }

std::size_t Cases::wordCount() const { return file_.size() / wordSize; }

std::size_t Cases::count() const {
    if (isSmall()) return file_.size() * (1 + otherValues);
    return file_.size() * (1 + largeFileChanges) + wordCount() * wordChanges;
}

std::uint32_t Cases::wordAt(std::size_t offset) const {
    std::uint32_t value = 0;
    for (std::size_t byte = 0; byte < wordSize; ++byte)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(file_[offset + byte])) << (8 * byte);
    return value;
}

Cases::Change Cases::changedByte(std::size_t index) const {
    const std::size_t changes = isSmall() ? otherValues : largeFileChanges;
    const std::size_t offset = index / changes;
    const std::size_t kind = (index + offset) % changes;
    const auto value = static_cast<unsigned char>(file_[offset]);
    if (isSmall()) return {offset, 1, value ^ static_cast<std::uint32_t>(1 + kind)};
    if (kind < bits) return {offset, 1, value ^ (std::uint32_t{1} << kind)};
    return {offset, 1, byteEdges[kind - bits]};
}

Cases::Change Cases::changedWord(std::size_t index) const {
    const std::size_t word = index / wordChanges;
    const std::size_t kind = (index + word) % wordChanges;
    const std::size_t offset = word * wordSize;
    if (kind < wordEdges.size()) return {offset, wordSize, wordEdges[kind]};
    switch (kind - wordEdges.size()) {
        case 0: return {offset, wordSize, wordAt(offset) + 1};
        case 1: return {offset, wordSize, wordAt(offset) - 1};
        default: return {offset, wordSize, static_cast<std::uint32_t>(file_.size())};
    }
}

Cases::Change Cases::change(std::size_t number) const {
    const std::size_t index = number - file_.size();
    const std::size_t bytes = file_.size() * (isSmall() ? otherValues : largeFileChanges);
    return index < bytes ? changedByte(index) : changedWord(index - bytes);
}

void Cases::make(std::size_t number, std::vector<char>& bytes) const {
    bytes.assign(file_.begin(), file_.end());
    if (number < file_.size()) {
        bytes.resize(number);
        return;
    }
    const Change made = change(number);
    for (std::size_t byte = 0; byte < made.size; ++byte)
        bytes[made.offset + byte] = static_cast<char>(static_cast<unsigned char>(made.value >> (8 * byte)));
}

std::string Cases::describe(std::size_t number) const {
    const std::string name = "case " + std::to_string(number);
    if (number < file_.size()) return name + ", cut to " + std::to_string(number) + " bytes";
    const Change made = change(number);
    const std::uint32_t was = made.size == 1 ? static_cast<unsigned char>(file_[made.offset]) : wordAt(made.offset);
    return name + (made.size == 1 ? ", byte " : ", word at ") + std::to_string(made.offset) + " is " +
           std::to_string(made.value) + " instead of " + std::to_string(was);
}

}  // namespace sweep
