// The memory of a document's objects: side by side in the order in which they were read, given back all at once.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace schema {

// Objects that are made while a thread reads a document lie in the arena of that reading; all others, such as clones, on
// the heap. The arena lives until the reading has ended and the last of its objects is destroyed. A document's objects are
// destroyed by one thread at a time. Up to 16 MB of the blocks of arenas that are gone stay with the process, for the next.
// In a build with a sanitizer that the pools of values pass through, all objects lie on the heap, where each is watched.
class Arena {
public:
    // Makes an arena for the calling thread's reading, as long as this lives.
    class Use {
    public:
        Use();
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        Arena* const outer_;
    };

    // For the operators new and delete of the document classes.
    static void* allocate(std::size_t size);
    static void release(void* object) noexcept;

private:
    Arena() = default;
    ~Arena();
    void* take(std::size_t size);
    void close() noexcept;

    struct Block {
        std::unique_ptr<std::byte[]> memory;
        std::size_t length;
    };

    std::vector<Block> blocks_;
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t objects_ = 0;
    bool closed_ = false;
};

}  // namespace schema
