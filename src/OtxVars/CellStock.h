// The cells of calls that have ended, for the variables of those to come.
#pragma once

#include <otx/value/OtxVariable.h>

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

namespace otxns {

// A few plain cells without a value, or with an Integer that is changed in place. For one thread.
class CellStock {
public:
    // Takes the cell in if nobody else holds it; else lets go of it. Values may die in that, and what they do may come here
    // again.
    void give(std::shared_ptr<OtxVariable> cell) noexcept {
        if (cell.use_count() != 1 || size_ == cells_.size()) return;
        if (cell->Retire() && size_ < cells_.size()) cells_[size_++] = std::move(cell);
    }

    // Null if there is none.
    std::shared_ptr<OtxVariable> take() noexcept {
        if (size_ == 0) return nullptr;
        return std::move(cells_[--size_]);
    }

private:
    std::array<std::shared_ptr<OtxVariable>, 32> cells_;
    std::size_t size_ = 0;
};

}  // namespace otxns
