// Small blocks of memory from free lists of the calling thread: values, cells and frames come and go without a lock.
#pragma once

#include <otx/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define OTX_POOL_PASSES_THROUGH 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define OTX_POOL_PASSES_THROUGH 1
#endif
#endif
#if !defined(OTX_POOL_PASSES_THROUGH)
#define OTX_POOL_PASSES_THROUGH 0
#endif

namespace otx {

// The free lists of one thread, by size class. Every block is plain operator new memory of its class's size, so a block
// may be given back on any thread, also while that thread ends; what a list can't take goes back to operator delete.
// Builds with a sanitizer use operator new and delete for every block, so that the sanitizer sees each of them.
class OTX_API BlockPool {
public:
    static constexpr std::size_t granule = 16;
    static constexpr std::size_t largest = 192;
    // Blocks that a thread keeps of each size class.
    static constexpr std::uint32_t kept = 512;

    // Throws std::bad_alloc as operator new does.
    static void* take(std::size_t size) {
        if (OTX_POOL_PASSES_THROUGH != 0 || size > largest) return ::operator new(size);
        const std::size_t sizeClass = (size - 1) / granule;
        List& list = ofThread.lists[sizeClass];
        if (Block* const block = list.first) [[likely]] {
            list.first = block->next;
            ++list.room;
            return block;
        }
        return ::operator new((sizeClass + 1) * granule);
    }

    static void give(void* memory, std::size_t size) noexcept {
        if (OTX_POOL_PASSES_THROUGH != 0 || size > largest) return ::operator delete(memory);
        List& list = ofThread.lists[(size - 1) / granule];
        if (list.room == 0 && !open()) [[unlikely]]
            return ::operator delete(memory);
        list.first = new (memory) Block{list.first};
        --list.room;
    }

private:
    struct Block {
        Block* next;
    };
    struct List {
        Block* first = nullptr;
        std::uint32_t room = 0;
    };
    struct Lists {
        std::array<List, largest / granule> lists;
        bool opened = false;
    };
    struct Closer;

    // Makes room in the calling thread's lists, once; false when the thread has opened them before.
    static bool open() noexcept;

    static constinit thread_local Lists ofThread __attribute__((tls_model("initial-exec")));
};

// The standard allocator over the pool, for std::allocate_shared and small containers.
template <class T>
class PoolAllocator {
public:
    using value_type = T;

    PoolAllocator() noexcept = default;
    template <class U>
    PoolAllocator(const PoolAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) {
        static_assert(alignof(T) <= BlockPool::granule);
        if (count != 1) return static_cast<T*>(::operator new(count * sizeof(T)));
        return static_cast<T*>(BlockPool::take(sizeof(T)));
    }
    void deallocate(T* memory, std::size_t count) noexcept {
        if (count != 1) return ::operator delete(memory);
        BlockPool::give(memory, sizeof(T));
    }

    template <class U>
    friend bool operator==(const PoolAllocator&, const PoolAllocator<U>&) noexcept {
        return true;
    }
};

}  // namespace otx
