// Ownership of a document tree, whose destruction recurses as deep as its building did.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace otxns {

class Otx;

// How much stack the building of a tree takes, measured while it goes on: the innermost calls note where they stand.
class StackUse {
public:
    StackUse() noexcept;
    ~StackUse();
    StackUse(const StackUse&) = delete;
    StackUse& operator=(const StackUse&) = delete;

    static void note() noexcept;
    std::size_t bytes() const noexcept { return begin_ - lowest_; }

private:
    StackUse* outer_;
    std::uintptr_t begin_;
    std::uintptr_t lowest_;
};

// Shares the document. A thread that drops the last reference with less stack left than the building took has the tree
// destroyed on a thread made for it.
std::shared_ptr<Otx> ownDocument(std::unique_ptr<Otx> document, const StackUse& use);

}  // namespace otxns
