// Which threads belong to one run.
#include <otx/event/ThreadGroup.h>

#include <algorithm>

namespace HvtUtil {

namespace {

// The first group, by root, that holds the thread.
template <class Groups>
auto groupOf(Groups& groups, std::thread::id thread) {
    return std::find_if(groups.begin(), groups.end(), [thread](const auto& group) {
        return std::find(group.second.begin(), group.second.end(), thread) != group.second.end();
    });
}

}  // namespace

void ThreadGroup::AddRoot() {
    const auto self = std::this_thread::get_id();
    const std::lock_guard guard(groupsLock_);
    groups_.try_emplace(self, 1, self);
}

void ThreadGroup::Join(std::thread::id parent) {
    const std::lock_guard guard(groupsLock_);
    const auto group = groupOf(groups_, parent);
    if (group != groups_.end()) group->second.push_back(std::this_thread::get_id());
}

void ThreadGroup::Leave() {
    const auto self = std::this_thread::get_id();
    const std::lock_guard guard(groupsLock_);
    const auto group = groupOf(groups_, self);
    if (group == groups_.end()) return;
    group->second.erase(std::find(group->second.begin(), group->second.end(), self));
}

void ThreadGroup::RemoveRoot(std::thread::id root) {
    const std::lock_guard guard(groupsLock_);
    groups_.erase(root);
}

std::optional<std::thread::id> ThreadGroup::RootOf(std::thread::id thread) const {
    const std::lock_guard guard(groupsLock_);
    const auto group = groupOf(groups_, thread);
    if (group == groups_.end()) return std::nullopt;
    return group->first;
}

}  // namespace HvtUtil
