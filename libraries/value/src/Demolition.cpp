// Destroying what values hold without running out of stack.
#include "Demolition.h"

#include <new>
#include <utility>
#include <variant>

namespace otx {

namespace {

using Rubble = std::variant<COtxValue, std::vector<COtxValue>, std::map<COtxValue, COtxValue>>;

// A level takes some 500 bytes of stack; the reserve that recursion elsewhere leaves bears them all.
constexpr int deepest = 32;

constinit thread_local int depth __attribute__((tls_model("initial-exec"))) = 0;
// What is put off, while the calling thread demolishes.
constinit thread_local std::vector<Rubble>* putOff __attribute__((tls_model("initial-exec"))) = nullptr;

void discard(COtxValue& content) noexcept { content = COtxValue(); }
template <class Container>
void discard(Container& content) noexcept {
    content.clear();
}

template <class Content>
bool putOffInstead(Content& content) noexcept {
    try {
        putOff->emplace_back(std::move(content));
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

// The outermost destruction, apart because of its frame.
template <class Content>
__attribute__((noinline)) void demolishOutermost(Content& content) noexcept {
    std::vector<Rubble> rubble;
    putOff = &rubble;
    depth = 1;
    discard(content);
    while (!rubble.empty()) {
        const Rubble next = std::move(rubble.back());
        rubble.pop_back();
    }
    depth = 0;
    putOff = nullptr;
}

template <class Content>
void demolishNested(Content& content) noexcept {
    if (depth == 0) return demolishOutermost(content);
    if (depth >= deepest && putOffInstead(content)) return;
    ++depth;
    discard(content);
    --depth;
}

}  // namespace

void demolish(std::vector<COtxValue>& content) noexcept {
    if (!content.empty()) demolishNested(content);
}

void demolish(std::map<COtxValue, COtxValue>& content) noexcept {
    if (!content.empty()) demolishNested(content);
}

void demolish(COtxValue& content) noexcept {
    if (content.Type() != OTX::ValueType::Empty) demolishNested(content);
}

}  // namespace otx
