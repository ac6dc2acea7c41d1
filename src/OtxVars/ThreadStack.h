// The frames of one thread that runs sequence code, one for each procedure call.
#pragma once

#include <OtxVars/OtxVarMap.h>

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace otxns {

// Frames are used again: pop empties the top frame and keeps it, so that a call in steady state allocates nothing.
//
// Threads: only the owner changes a stack, without a lock as long as it is alone with it. Other threads may look at it
//   - while the owner is parked, that is, waits for them in a way that orders their reads before its next change, or
//   - after the owner has called share(): from then on it takes the guard for each change, until unshare().
class ThreadStack {
public:
    ThreadStack() = default;
    ThreadStack(const ThreadStack&) = delete;
    ThreadStack& operator=(const ThreadStack&) = delete;

    // By the owner.
    std::size_t depth() const noexcept { return depth_; }
    OtxVarMap* top() const noexcept { return top_; }
    void push(const Name& name) {
        if (isShared_ || depth_ == frames_.size()) [[unlikely]]
            return pushSlowly(name);
        frames_[depth_]->name = &name;
        advance();
    }
    // Both only with a frame.
    const Name& topName() const noexcept { return *frames_[depth_ - 1]->name; }
    void pop() noexcept;
    void share();
    void unshare();
    // What pop leaves for the next declarations.
    CellStock& stock() noexcept { return stock_; }

    // Begins with a copy of another stack's top frame and its name; false if the other has none.
    bool pushCopyOf(ThreadStack& other);

    // By any thread, as told above.
    std::vector<std::string> names();
    OtxVarMap* sharedTop();

private:
    struct Frame {
        const Name* name = nullptr;
        OtxVarMap variables;
    };
    class Change;

    void pushSlowly(const Name& name);
    Frame& next();
    void advance() noexcept {
        top_ = &frames_[depth_]->variables;
        ++depth_;
    }

    std::recursive_mutex guard;
    bool isShared_ = false;
    // Those from depth_ on are spare.
    std::vector<std::unique_ptr<Frame>> frames_;
    std::size_t depth_ = 0;
    OtxVarMap* top_ = nullptr;
    CellStock stock_;
};

}  // namespace otxns
