// Gives out memory from blocks; in front of each object stands whose it is.
#include <schema/Arena.h>

#include <otx/value/Pool.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace schema {

namespace {

constinit thread_local void* currentArena __attribute__((tls_model("initial-exec"))) = nullptr;

// Of the document classes none needs more than the alignment of its pointers and numbers.
constexpr std::size_t border = 8;
constexpr std::size_t ownerSize = sizeof(void*);
constexpr std::size_t heapOffset = 16;
static_assert(ownerSize <= border && heapOffset >= ownerSize + border);

// As with the memory of values: sanitizers see every block.
constexpr bool inUse = OTX_POOL_PASSES_THROUGH == 0;

void* markOwner(std::byte* object, void* owner) {
    std::memcpy(object - ownerSize, &owner, ownerSize);
    return object;
}

void* ownerOf(const std::byte* object) {
    void* owner = nullptr;
    std::memcpy(&owner, object - ownerSize, ownerSize);
    return owner;
}

}  // namespace

Arena::Use::Use() : outer_(static_cast<Arena*>(currentArena)) {
    currentArena = inUse ? new Arena : nullptr;
}

Arena::Use::~Use() {
    if (auto* const own = static_cast<Arena*>(std::exchange(currentArena, outer_))) own->close();
}

void Arena::close() noexcept {
    closed_ = true;
    if (objects_ == 0) delete this;
}

void* Arena::allocate(std::size_t size) {
    if (auto* const arena = static_cast<Arena*>(currentArena)) return arena->take(size);
    return markOwner(static_cast<std::byte*>(::operator new(size + heapOffset)) + heapOffset, nullptr);
}

void* Arena::take(std::size_t size) {
    const std::size_t whole = (size + border - 1) / border * border + ownerSize;
    if (whole > left_) {
        constexpr std::size_t smallest = 16 * 1024;
        constexpr std::size_t largest = 512 * 1024;
        const std::size_t grown = std::min(largest, smallest << std::min<std::size_t>(blocks_.size(), 5));
        const std::size_t block = std::max(whole, grown);
        // Not cleared: an object initialises what it uses.
        blocks_.push_back(std::unique_ptr<std::byte[]>(new std::byte[block]));
        next_ = blocks_.back().get();
        left_ = block;
    }
    std::byte* const object = next_ + ownerSize;
    next_ += whole;
    left_ -= whole;
    ++objects_;
    return markOwner(object, this);
}

void Arena::release(void* object) noexcept {
    if (object == nullptr) return;
    auto* const bytes = static_cast<std::byte*>(object);
    auto* const arena = static_cast<Arena*>(ownerOf(bytes));
    if (arena == nullptr) {
        ::operator delete(bytes - heapOffset);
        return;
    }
    if (--arena->objects_ == 0 && arena->closed_) delete arena;
}

}  // namespace schema
