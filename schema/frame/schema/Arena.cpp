// Gives out memory from blocks; in front of each object stands whose it is.
#include <schema/Arena.h>

#include <otx/value/Pool.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
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

using Memory = std::unique_ptr<std::byte[]>;

// Not cleared: an object initialises what it uses.
Memory newBlock(std::size_t size) {
    return Memory(new std::byte[size]);
}

// Blocks of arenas that are gone, for the next document: memory that the system has to clear anew costs as much as a good
// part of the loading.
class SpareBlocks {
public:
    static constexpr std::size_t size = 512 * 1024;
    static constexpr std::size_t kept = 32;

    // Never destroyed: documents may be given back while the process ends.
    static SpareBlocks& ofProcess() {
        static auto& made = *new SpareBlocks;
        return made;
    }

    Memory take() {
        {
            const std::lock_guard lock(mutex_);
            if (count_ > 0) return std::move(blocks_[--count_]);
        }
        return newBlock(size);
    }

    void give(Memory block) noexcept {
        const std::lock_guard lock(mutex_);
        if (count_ < kept) blocks_[count_++] = std::move(block);
    }

private:
    std::mutex mutex_;
    std::array<Memory, kept> blocks_;
    std::size_t count_ = 0;
};

}  // namespace

Arena::~Arena() {
    for (Block& block : blocks_)
        if (block.length == SpareBlocks::size) SpareBlocks::ofProcess().give(std::move(block.memory));
}

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
        const std::size_t grown = std::min(SpareBlocks::size, smallest << std::min<std::size_t>(blocks_.size(), 5));
        left_ = std::max(whole, grown);
        blocks_.push_back({left_ == SpareBlocks::size ? SpareBlocks::ofProcess().take() : newBlock(left_), left_});
        next_ = blocks_.back().memory.get();
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
