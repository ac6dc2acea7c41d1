// All event sources of the process with the thread groups they belong to.
#include "OpenSources.h"

#include <otx/event/COtxEventSource.h>

namespace otx {

namespace {

// A thread in no group is a group of its own.
std::thread::id groupOf(std::thread::id thread) {
    return COtxEventSource::ThreadGroup().RootOf(thread).value_or(thread);
}

}  // namespace

OpenSources& OpenSources::instance() {
    static auto* const sources = new OpenSources;
    return *sources;
}

void OpenSources::add(const std::shared_ptr<EventSource>& source) {
    const std::thread::id root = groupOf(std::this_thread::get_id());
    const std::lock_guard guard(sourcesLock_);
    sources_.insert_or_assign(source.get(), Entry{root, source});
}

void OpenSources::remove(EventSource* source) noexcept {
    const std::lock_guard guard(sourcesLock_);
    sources_.erase(source);
}

std::vector<std::shared_ptr<EventSource>> OpenSources::ofGroup(std::thread::id thread) {
    const std::thread::id root = groupOf(thread);
    std::vector<std::shared_ptr<EventSource>> found;
    const std::lock_guard guard(sourcesLock_);
    for (const auto& [address, entry] : sources_) {
        if (entry.root != root) continue;
        if (auto source = entry.source.lock()) found.push_back(std::move(source));
    }
    return found;
}

}  // namespace otx

// Never destroyed: threads may leave their groups late.
HvtUtil::ThreadGroup& COtxEventSource::ThreadGroup() {
    static auto* const group = new HvtUtil::ThreadGroup;
    return *group;
}

void COtxEventSource::PutAll(std::thread::id thread, const COtxValue& name, const COtxValue& value) {
    for (const auto& source : otx::OpenSources::instance().ofGroup(thread)) source->deliver(name, value);
}

void COtxEventSource::CloseAll(std::thread::id thread) {
    for (const auto& source : otx::OpenSources::instance().ofGroup(thread)) source->Close();
}
