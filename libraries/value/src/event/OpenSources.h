// All event sources of the process with the thread groups they belong to.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "../Make.h"
#include "EventSource.h"

namespace otx {

class OpenSources {
public:
    // Never destroyed: sources in static objects still leave it.
    static OpenSources& instance();

    // Enters a source under the group of the calling thread.
    void add(const std::shared_ptr<EventSource>& source);
    void remove(EventSource* source) noexcept;
    // Does something with each source of the group that the thread is in, with no lock held. What is made meanwhile, such as by
    // a flow whose wait this ends, is left alone. Needs no memory of its own: a run is cancelled also where there is none.
    template <class Action>
    void forGroup(std::thread::id thread, const Action& action) {
        const std::thread::id root = rootOf(thread);
        const std::uint64_t begun = made_;
        for (auto source = next(root, nullptr, begun); source != nullptr; source = next(root, source.get(), begun))
            action(*source);
    }

private:
    struct Entry {
        std::thread::id root;
        // Set for the source of a thread in no group: gone when that thread has ended, whose number another may have.
        std::optional<std::weak_ptr<const void>> lifeOfThread;
        std::weak_ptr<EventSource> source;
        std::uint64_t number;
    };

    static std::thread::id rootOf(std::thread::id thread);
    // The first one of the group behind that address whose number is at most `last`; null for none.
    std::shared_ptr<EventSource> next(std::thread::id root, EventSource* after, std::uint64_t last);

    // Guards sources_ and the writes of made_.
    std::mutex sourcesLock_;
    std::map<EventSource*, Entry, std::less<>> sources_;
    // The number of the last source.
    std::atomic<std::uint64_t> made_{0};
};

// Makes a source and enters it.
template <class Source, class... Arguments>
COtxValue makeSource(Arguments&&... arguments) {
    COtxValue made = makeLinked<EventSourceBehaviour<Source>>(std::forward<Arguments>(arguments)...);
    OpenSources::instance().add(sourceBehind(made));
    return made;
}

}  // namespace otx
