// All event sources of the process with the thread groups they belong to.
#pragma once

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
    // Does something with each source of the group that the thread is in, with no lock held. What is made meanwhile, perhaps
    // by a flow that one of the sources has woken, isn't among them. Needs no memory of its own: a run is cancelled also where
    // there is none.
    template <class Action>
    void forGroup(std::thread::id thread, const Action& action) {
        const std::thread::id root = rootOf(thread);
        const std::uint64_t end = made();
        for (auto source = next(root, end, nullptr); source != nullptr; source = next(root, end, source.get()))
            action(*source);
    }

private:
    struct Entry {
        std::thread::id root;
        // How many had been made before it.
        std::uint64_t number;
        // Set for the source of a thread in no group: gone when that thread has ended, whose number another may have.
        std::optional<std::weak_ptr<const void>> lifeOfThread;
        std::weak_ptr<EventSource> source;
    };

    static std::thread::id rootOf(std::thread::id thread);
    std::uint64_t made();
    // The first one of the group behind that address with a number below `end`; null for none.
    std::shared_ptr<EventSource> next(std::thread::id root, std::uint64_t end, EventSource* after);

    // Guards the two below.
    std::mutex sourcesLock_;
    std::uint64_t made_ = 0;
    std::map<EventSource*, Entry, std::less<>> sources_;
};

// Makes a source and enters it.
template <class Source, class... Arguments>
COtxValue makeSource(Arguments&&... arguments) {
    COtxValue made = makeLinked<EventSourceBehaviour<Source>>(std::forward<Arguments>(arguments)...);
    OpenSources::instance().add(sourceBehind(made));
    return made;
}

}  // namespace otx
