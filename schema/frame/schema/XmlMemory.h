// The memory of one document while it is parsed.
#pragma once

#include <xercesc/framework/MemoryManager.hpp>

namespace schema {

// Owns what the parser has not given back: when there is no memory the parser leaves what it has begun with. Outlives the parser
// and the DOM. One thread at a time.
class XmlMemory : public xercesc::MemoryManager {
public:
    XmlMemory();
    XmlMemory(const XmlMemory&) = delete;
    XmlMemory& operator=(const XmlMemory&) = delete;
    ~XmlMemory() override;

    // The one that the parser makes its exceptions with.
    xercesc::MemoryManager* getExceptionMemoryManager() override;
    // Throws xercesc::OutOfMemoryException, by which the parser knows that it mustn't clean up.
    void* allocate(XMLSize_t size) override;
    void deallocate(void* memory) override;

private:
    // Ahead of each block, in a ring.
    struct alignas(16) Link {
        Link* before;
        Link* behind;
    };
    Link ring_;
};

}  // namespace schema
