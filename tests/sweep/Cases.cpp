// Numbers truncations and changed bytes.
#include "Cases.h"

namespace sweep {

Cases::Change Cases::change(std::size_t number) const {
    const std::size_t index = number - file_.size();
    const std::size_t offset = index / changes;
    const std::size_t difference = 1 + (index + offset) % changes;
    return {offset, static_cast<unsigned char>(static_cast<unsigned char>(file_[offset]) ^ difference)};
}

void Cases::make(std::size_t number, std::vector<char>& bytes) const {
    bytes.assign(file_.begin(), file_.end());
    if (number < file_.size()) {
        bytes.resize(number);
        return;
    }
    const Change made = change(number);
    bytes[made.offset] = static_cast<char>(made.value);
}

std::string Cases::describe(std::size_t number) const {
    const std::string name = "case " + std::to_string(number);
    if (number < file_.size()) return name + ", cut to " + std::to_string(number) + " bytes";
    const Change made = change(number);
    return name + ", byte " + std::to_string(made.offset) + " is " + std::to_string(made.value) + " instead of " +
           std::to_string(static_cast<unsigned char>(file_[made.offset]));
}

}  // namespace sweep
