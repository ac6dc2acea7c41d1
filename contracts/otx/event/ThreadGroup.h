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
    // Makes a group with the calling thread as its root and only member; a group that is there stays as it is.
    void AddRoot();
    // The calling thread joins the first group, by root, that holds the parent. Without one, nothing happens.
    void Join(std::thread::id parent);
    // The calling thread leaves the first group that holds it.
    void Leave();
    // Ends the group of that root.
    void RemoveRoot(std::thread::id root);

    // The root of the first group that holds the thread.
    std::optional<std::thread::id> RootOf(std::thread::id thread) const;

private:
    // Guards groups_.
    mutable std::mutex groupsLock_;
    std::map<std::thread::id, std::vector<std::thread::id>> groups_;
};

}  // namespace HvtUtil
