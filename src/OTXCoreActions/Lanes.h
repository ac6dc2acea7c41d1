// One execution of a Parallel: its lanes, each a flow on a thread of its own.
#pragma once

#include <OTXContext/OtxContext.h>

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace otxns {

// Shared by the parent's thread and the lanes; lasts until the last of them lets go.
class Lanes {
public:
    // On the parent's thread.
    Lanes(const Parallel& node, OtxContext& context);

    // A lane from its beginning to its end, on the lane's thread. Nothing leaves it but the thread's own cancellation.
    void runLane(const Flow& lane);
    // The lanes that have begun end without running a node, since there can't be all of them.
    void abandon();
    // Cancels the run; nothing leaves it.
    void cancelSequence();
    // When all have ended: throws the first OTX exception of a lane, else the Return of the last lane that returned.
    void raise() const;

private:
    class Begun;

    void begin();
    void end();
    // False when the lanes are given up.
    bool waitForAll();
    void cancelOthers();
    void cancelSequence(const std::exception& failure);
    void runFlow(const Flow& lane);

    OtxContext& context_;
    const std::string name_;  // the node's class, as the trace shows it
    const std::thread::id parent_;
    const FlowState parentState_;
    const std::size_t laneCount_;

    // Guards what follows; taken before the locks of the context.
    std::mutex lock_;
    std::condition_variable allStarted_;
    std::size_t startedCount_ = 0;
    // Those that run: the number of a thread that has ended may come back as that of a stranger.
    std::vector<std::thread::id> threads_;
    bool abandoned_ = false;
    std::exception_ptr returned_;
    std::exception_ptr failure_;
};

}  // namespace otxns
