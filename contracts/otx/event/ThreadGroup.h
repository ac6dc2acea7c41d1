// Which threads belong to one run.
#pragma once

#include <otx/Export.h>

#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace HvtUtil {

// Groups of threads, each with a root, so that an event source knows the run it belongs to. Any thread may call every
// operation.
class OTX_API ThreadGroup {
public:
    // Makes a group with the calling thread as its root and only member; false for a group that is there already.
    bool AddRoot();
    // The calling thread joins the first group, by root, that holds the parent. Without one, nothing happens.
    void Join(std::thread::id parent);
    // The calling thread leaves the first group that holds it.
    void Leave();
    // Ends the group of that root.
    void RemoveRoot(std::thread::id root);

    // The root of the group that the thread has joined, else of the first group that holds it.
    std::optional<std::thread::id> RootOf(std::thread::id thread);

private:
    using Groups = std::map<std::thread::id, std::vector<std::thread::id>>;
    Groups::iterator find(std::thread::id thread);

    // Guards groups_.
    mutable std::mutex groupsLock_;
    Groups groups_;
    // The roots of those that have joined: the number of a thread may stand in the group of a thread that is gone.
    std::map<std::thread::id, std::thread::id> joined_;
};

}  // namespace HvtUtil
