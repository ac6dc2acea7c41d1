// The memory of a CDR stream that is written.
#pragma once

#include <ace/Malloc_Allocator.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <utility>

namespace schema {

// Throws std::bad_alloc, where the library's own gives null, which its streams don't look at. Such a throw leaves behind what
// the stream has begun with: the memory goes with this object at the latest, which outlives the stream.
class CdrMemory : public ACE_New_Allocator {
public:
    void* malloc(std::size_t size) override {
        auto block = std::make_unique_for_overwrite<char[]>(size);
        void* const address = block.get();
        blocks_.emplace(address, std::move(block));
        return address;
    }
    void* calloc(std::size_t size, char initialValue) override { return std::memset(malloc(size), initialValue, size); }
    void* calloc(std::size_t count, std::size_t size, char initialValue) override { return calloc(count * size, initialValue); }
    void free(void* address) override { blocks_.erase(address); }

private:
    std::map<void*, std::unique_ptr<char[]>> blocks_;
};

}  // namespace schema
