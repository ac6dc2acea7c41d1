// The memory of one document while it is parsed.
#include <schema/XmlMemory.h>

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <new>

namespace schema {

XmlMemory::XmlMemory() : ring_{&ring_, &ring_} {}

XmlMemory::~XmlMemory() {
    while (ring_.behind != &ring_) deallocate(ring_.behind + 1);
}

xercesc::MemoryManager* XmlMemory::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager->getExceptionMemoryManager();
}

void* XmlMemory::allocate(XMLSize_t size) {
    void* const memory = ::operator new(sizeof(Link) + size, std::nothrow);
    if (memory == nullptr) throw xercesc::OutOfMemoryException();
    Link* const link = new (memory) Link{&ring_, ring_.behind};
    link->behind->before = link;
    ring_.behind = link;
    return link + 1;
}

void XmlMemory::deallocate(void* memory) {
    if (memory == nullptr) return;
    Link* const link = static_cast<Link*>(memory) - 1;
    link->before->behind = link->behind;
    link->behind->before = link->before;
    ::operator delete(link);
}

}  // namespace schema
