// All event sources of the process with the thread groups they belong to.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

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
    // The sources of the group that the thread is in.
    std::vector<std::shared_ptr<EventSource>> ofGroup(std::thread::id thread);

private:
    struct Entry {
        std::thread::id root;
        // Set for the source of a thread in no group: gone when that thread has ended, whose number another may have.
        std::optional<std::weak_ptr<const void>> lifeOfThread;
        std::weak_ptr<EventSource> source;
    };

    // Guards sources_.
    std::mutex sourcesLock_;
    std::unordered_map<EventSource*, Entry> sources_;
};

// Makes a source and enters it.
template <class Source, class... Arguments>
COtxValue makeSource(Arguments&&... arguments) {
    COtxValue made = makeLinked<EventSourceBehaviour<Source>>(std::forward<Arguments>(arguments)...);
    OpenSources::instance().add(sourceBehind(made));
    return made;
}

}  // namespace otx
