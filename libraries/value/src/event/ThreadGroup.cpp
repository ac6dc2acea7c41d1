// Which threads belong to one run.
#include <otx/event/ThreadGroup.h>

#include <algorithm>
#include <new>

namespace HvtUtil {

// What a thread has joined itself comes first: its number may stand in an older group too, from a thread that is gone.
ThreadGroup::Groups::iterator ThreadGroup::find(std::thread::id thread) {
    if (const auto joined = joined_.find(thread); joined != joined_.end()) return groups_.find(joined->second);
    return std::find_if(groups_.begin(), groups_.end(), [thread](const auto& group) {
        return std::find(group.second.begin(), group.second.end(), thread) != group.second.end();
    });
}

bool ThreadGroup::AddRoot() {
    const auto self = std::this_thread::get_id();
    const std::lock_guard guard(groupsLock_);
    return groups_.try_emplace(self, 1, self).second;
}

void ThreadGroup::Join(std::thread::id parent) {
    const auto self = std::this_thread::get_id();
    const std::lock_guard guard(groupsLock_);
    const auto group = find(parent);
    if (group == groups_.end()) return;
    joined_[self] = group->first;
    try {
        group->second.push_back(self);
    } catch (const std::bad_alloc&) {
        joined_.erase(self);
        throw;
    }
}

void ThreadGroup::Leave() {
    const auto self = std::this_thread::get_id();
    const std::lock_guard guard(groupsLock_);
    const auto group = find(self);
    joined_.erase(self);
    if (group == groups_.end()) return;
    const auto member = std::find(group->second.begin(), group->second.end(), self);
    if (member != group->second.end()) group->second.erase(member);
}

void ThreadGroup::RemoveRoot(std::thread::id root) {
    const std::lock_guard guard(groupsLock_);
    groups_.erase(root);
}

std::optional<std::thread::id> ThreadGroup::RootOf(std::thread::id thread) {
    const std::lock_guard guard(groupsLock_);
    const auto group = find(thread);
    if (group == groups_.end()) return std::nullopt;
    return group->first;
}

}  // namespace HvtUtil
