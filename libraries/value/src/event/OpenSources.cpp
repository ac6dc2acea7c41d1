// All event sources of the process with the thread groups they belong to.
#include "OpenSources.h"

#include <otx/event/COtxEventSource.h>
#include <otx/value/COtxString.h>

namespace otx {

namespace {

// Lives as long as the calling thread.
std::weak_ptr<const void> lifeOfThisThread() {
    static thread_local const std::shared_ptr<const void> life = std::make_shared<char>();
    return life;
}

}  // namespace

OpenSources& OpenSources::instance() {
    static auto* const sources = new OpenSources;
    return *sources;
}

void OpenSources::add(const std::shared_ptr<EventSource>& source) {
    const std::thread::id self = std::this_thread::get_id();
    const auto root = COtxEventSource::ThreadGroup().RootOf(self);
    Entry entry{root.value_or(self), 0, std::nullopt, source};
    if (!root) entry.lifeOfThread = lifeOfThisThread();
    const std::lock_guard guard(sourcesLock_);
    entry.number = made_++;
    sources_.insert_or_assign(source.get(), std::move(entry));
}

void OpenSources::remove(EventSource* source) noexcept {
    const std::lock_guard guard(sourcesLock_);
    sources_.erase(source);
}

// A thread in no group is a group of its own.
std::thread::id OpenSources::rootOf(std::thread::id thread) {
    return COtxEventSource::ThreadGroup().RootOf(thread).value_or(thread);
}

std::uint64_t OpenSources::made() {
    const std::lock_guard guard(sourcesLock_);
    return made_;
}

std::shared_ptr<EventSource> OpenSources::next(std::thread::id root, std::uint64_t end, EventSource* after) {
    const std::lock_guard guard(sourcesLock_);
    for (auto found = sources_.upper_bound(after); found != sources_.end(); ++found) {
        const Entry& entry = found->second;
        if (entry.root != root || entry.number >= end || (entry.lifeOfThread && entry.lifeOfThread->expired())) continue;
        if (auto source = entry.source.lock()) return source;
    }
    return nullptr;
}

}  // namespace otx

// Never destroyed: threads may leave their groups late.
HvtUtil::ThreadGroup& COtxEventSource::ThreadGroup() {
    static auto* const group = new HvtUtil::ThreadGroup;
    return *group;
}

void COtxEventSource::PutAll(std::thread::id thread, const COtxValue& value, const COtxValue& param) {
    const COtxValue name = param.Type() == OTX::ValueType::String ? param : COtxString();
    otx::OpenSources::instance().forGroup(thread, [&](otx::EventSource& source) { source.deliver(name, value); });
}

void COtxEventSource::CloseAll(std::thread::id thread) {
    otx::OpenSources::instance().forGroup(thread, [](otx::EventSource& source) { source.Close(); });
}

bool COtxEventSource::IsClosed(const COtxValue& source) {
    const auto own = otx::sourceBehind(source);
    return own != nullptr && own->isClosed();
}
