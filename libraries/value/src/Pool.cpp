// Opening and closing a thread's lists of free blocks.
#include <otx/value/Pool.h>

namespace otx {

constinit thread_local BlockPool::Lists BlockPool::ofThread;

// Gives the thread's blocks back when the thread ends. Blocks that die after that find no room and go to operator delete.
struct BlockPool::Closer {
    ~Closer() {
        for (List& list : ofThread.lists) {
            list.room = 0;
            while (Block* const block = list.first) {
                list.first = block->next;
                ::operator delete(block);
            }
        }
    }
};

bool BlockPool::open() noexcept {
    if (ofThread.opened) return false;
    ofThread.opened = true;
    static thread_local Closer closer;
    static_cast<void>(closer);
    for (List& list : ofThread.lists) list.room = kept;
    return true;
}

}  // namespace otx
