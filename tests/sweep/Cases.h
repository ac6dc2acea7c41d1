// All the ways in which one compiled file is broken, by number.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace sweep {

// First every truncation, the shortest first; then, at every offset, every other value of the byte. The values that
// neighbouring offsets begin with differ, so that a sample by a fixed stride meets all of them.
class Cases {
public:
    explicit Cases(std::span<const char> file) : file_(file) {}

    std::size_t count() const { return file_.size() * (1 + changes); }
    // The bytes of a case replace those of `bytes`.
    void make(std::size_t number, std::vector<char>& bytes) const;
    std::string describe(std::size_t number) const;

private:
    static constexpr std::size_t changes = 255;

    struct Change {
        std::size_t offset;
        unsigned char value;
    };
    Change change(std::size_t number) const;

    std::span<const char> file_;
};

}  // namespace sweep
