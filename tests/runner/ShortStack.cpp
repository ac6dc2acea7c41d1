// A thread with less stack than the main one.
#include "ShortStack.h"

#include <cxxabi.h>
#include <pthread.h>

#include <cstddef>
#include <exception>
#include <stdexcept>

namespace documents {

namespace {

// A sanitizer's frames are larger.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t stackSize = 8 * 1024 * 1024;
#elif defined(__SANITIZE_THREAD__)
constexpr std::size_t stackSize = 4 * 1024 * 1024;
#else
constexpr std::size_t stackSize = 2 * 1024 * 1024;
#endif

struct Work {
    const std::function<void()>& function;
    std::exception_ptr failure;
};

void* start(void* argument) {
    Work& work = *static_cast<Work*>(argument);
    try {
        work.function();
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        work.failure = std::current_exception();
    }
    return nullptr;
}

}  // namespace

void onShortStack(const std::function<void()>& function) {
    Work work{function, nullptr};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread{};
    const int refused = pthread_create(&thread, &attributes, start, &work);
    pthread_attr_destroy(&attributes);
    if (refused != 0) throw std::runtime_error("no thread for the run");
    pthread_join(thread, nullptr);
    if (work.failure) std::rethrow_exception(work.failure);
}

}  // namespace documents
