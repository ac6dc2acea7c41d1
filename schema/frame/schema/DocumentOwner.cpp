// Destroys document trees where there is stack enough.
#include <schema/DocumentOwner.h>

#include <schema/core.h>

#include <otx/Stack.h>

#include <pthread.h>

#include <algorithm>
#include <utility>

namespace otxns {

namespace {

thread_local StackUse* measuring = nullptr;

std::uintptr_t here() noexcept {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

void* destroy(void* document) {
    delete static_cast<Otx*>(document);
    return nullptr;
}

// Without a thread the tree is given up rather than the process.
void destroyElsewhere(Otx* document, std::size_t stackSize) noexcept {
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) return;
    pthread_t thread;
    if (pthread_attr_setstacksize(&attributes, stackSize) == 0 &&
        pthread_create(&thread, &attributes, destroy, document) == 0)
        pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

}  // namespace

StackUse::StackUse() noexcept : outer_(std::exchange(measuring, this)), begin_(here()), lowest_(begin_) {}

StackUse::~StackUse() {
    measuring = outer_;
}

void StackUse::note() noexcept {
    if (measuring != nullptr) measuring->lowest_ = std::min(measuring->lowest_, here());
}

std::shared_ptr<Otx> ownDocument(std::unique_ptr<Otx> document, const StackUse& use) {
    const std::size_t needed = use.bytes();
    return {document.release(), [needed](Otx* tree) {
                constexpr std::size_t spare = 256 * 1024;
                // The thread's stack holds its reserve too, of at most a quarter of it; sizes go by whole pages.
                constexpr std::size_t page = 64 * 1024;
                if (otx::stackLeft() >= needed)
                    delete tree;
                else
                    destroyElsewhere(tree, (needed + spare + page) / page * page);
            }};
}

}  // namespace otxns
