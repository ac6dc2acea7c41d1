// Serialises the XML parser's initialisation and termination.
#include <schema/XmlPlatform.h>

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <mutex>
#include <new>

namespace schema {

namespace {

std::mutex& platformLock() {
    static std::mutex* const lock = new std::mutex;
    return *lock;
}

}  // namespace

void XmlPlatform::initialise() try {
    const std::lock_guard guard(platformLock());
    static const bool kept = [] {
        xercesc::XMLPlatformUtils::Initialize();
        return true;
    }();
    static_cast<void>(kept);
    xercesc::XMLPlatformUtils::Initialize();
} catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
}

void XmlPlatform::terminate() {
    const std::lock_guard guard(platformLock());
    xercesc::XMLPlatformUtils::Terminate();
}

}  // namespace schema
