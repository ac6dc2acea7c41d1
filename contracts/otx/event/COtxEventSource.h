// The event sources of a whole run.
#pragma once

#include <otx/event/ThreadGroup.h>
#include <otx/value/COtxValue.h>

#include <thread>

// Operations on all open event sources that belong to one group of threads. A source belongs to the group that its
// creating thread was in at its creation; one made by a thread in no group belongs to that thread alone, while it runs.
// What is done to all sources of a group is done to those that there are when it begins, not to those made meanwhile.
// Any thread.
class OTX_API COtxEventSource {
public:
    COtxEventSource() = delete;

    // The groups of the process.
    static HvtUtil::ThreadGroup& ThreadGroup();
    // Delivers an event of its own kind to every open source of the thread's group, with the value, and with the parameter as
    // its name if that is a String.
    static void PutAll(std::thread::id thread, const COtxValue& value, const COtxValue& param);
    // Closes every open source of the thread's group, which ends every wait on them.
    static void CloseAll(std::thread::id thread);
    // Whether it has been closed, so that who hands out sources knows when a new one is needed. False for what is no source
    // of this library.
    static bool IsClosed(const COtxValue& source);
};
