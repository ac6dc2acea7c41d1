// All the ways in which one compiled file is broken, by number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace sweep {

// First every truncation, the shortest first. Then, in a file of at most 4 KB, at every offset every other value of the byte. In
// a larger one at every offset each of the byte's bits turned over and the values at the edges of a byte, and at every word's
// offset the values at the edges of a number or a count. The values that neighbouring offsets begin with differ, so that a
// sample by a fixed stride meets all of them.
class Cases {
public:
    explicit Cases(std::span<const char> file) : file_(file) {}

    std::size_t count() const;
    // The bytes of a case replace those of `bytes`.
    void make(std::size_t number, std::vector<char>& bytes) const;
    std::string describe(std::size_t number) const;

private:
    // So many bytes from there on, the lowest first.
    struct Change {
        std::size_t offset;
        std::size_t size;
        std::uint32_t value;
    };
    bool isSmall() const;
    std::size_t wordCount() const;
    std::uint32_t wordAt(std::size_t offset) const;
    Change change(std::size_t number) const;
    Change changedByte(std::size_t index) const;
    Change changedWord(std::size_t index) const;

    std::span<const char> file_;
};

}  // namespace sweep
