// Pushing, popping and looking at the frames of one thread.
#include <OtxVars/ThreadStack.h>

namespace otxns {

// Holds the guard while the owner changes a stack that others may look at.
class ThreadStack::Change {
public:
    explicit Change(ThreadStack& stack) : guard_(stack.isShared_ ? &stack.guard : nullptr) {
        if (guard_ != nullptr) guard_->lock();
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    ~Change() {
        if (guard_ != nullptr) guard_->unlock();
    }

private:
    std::recursive_mutex* guard_;
};

void ThreadStack::pushSlowly(const Name& name) {
    const Change change(*this);
    next().name = &name;
    advance();
}

void ThreadStack::pop() noexcept {
    const Change change(*this);
    frames_[depth_ - 1]->variables.clear(stock_);
    --depth_;
    top_ = depth_ != 0 ? &frames_[depth_ - 1]->variables : nullptr;
}

void ThreadStack::share() {
    if (isShared_) return;
    for (const auto& frame : frames_) frame->variables.setAccess(OtxVarMap::Access::shared);
    isShared_ = true;
}

void ThreadStack::unshare() {
    if (!isShared_) return;
    const std::lock_guard lock(guard);
    for (const auto& frame : frames_) frame->variables.setAccess(OtxVarMap::Access::owner);
    isShared_ = false;
}

bool ThreadStack::pushCopyOf(ThreadStack& other) {
    const std::lock_guard lock(other.guard);
    if (other.depth_ == 0) return false;
    const Frame& original = *other.frames_[other.depth_ - 1];
    const Change change(*this);
    Frame& copy = next();
    copy.variables.copyFrom(original.variables);
    copy.name = original.name;
    advance();
    return true;
}

std::vector<std::string> ThreadStack::names() {
    const std::lock_guard lock(guard);
    std::vector<std::string> texts;
    texts.reserve(depth_);
    for (std::size_t i = 0; i < depth_; ++i) texts.push_back(frames_[i]->name->text());
    return texts;
}

OtxVarMap* ThreadStack::sharedTop() {
    const std::lock_guard lock(guard);
    return top_;
}

ThreadStack::Frame& ThreadStack::next() {
    if (depth_ == frames_.size()) {
        auto frame = std::make_unique<Frame>();
        if (isShared_) frame->variables.setAccess(OtxVarMap::Access::shared);
        frames_.push_back(std::move(frame));
    }
    return *frames_[depth_];
}

}  // namespace otxns
