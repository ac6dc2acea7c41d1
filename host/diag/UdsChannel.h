// A channel to a control unit: requests in, responses out, with the timing of UDS (ISO 14229-2) in between.
#pragma once

#include "diag/PduTrace.h"
#include "diag/UdsExchange.h"
#include "diag/UdsTiming.h"

#include <transport/Transport.h>

#include <memory>
#include <optional>
#include <string>

namespace velkotx::host {

class UdsTraffic;

// Something that a channel's thread does now and then.
class UdsTimed {
public:
    virtual ~UdsTimed() = default;

    // Called when its time has come, and once more when the channel is closed, on the channel's thread and without a lock.
    // Gives the next time; nothing ends it. May submit; must not throw.
    virtual std::optional<Clock::Time> due(Clock::Time now) = 0;
};

// Any thread may call every operation. One request at a time is on the link; the others wait in their order. What can be
// answered without waiting is done by the thread that submits; all else by the one thread that the channel has of its own
// as soon as there is something for it to do, which also keeps a session alive.
//
// Destruction closes the channel and waits for its thread; requests on their way end as Closed. The channel may be
// destroyed by a client that it calls.
class UdsChannel {
public:
    enum class State {
        Created,  // not started yet
        Open,
        Stopped,  // nothing is sent
        Broken,   // the transport failed; start() opens the link again
        Closed    // for ever
    };

    // Requests that may wait for the link; the next one ends as Crowded.
    static constexpr std::size_t longestQueue = 1024;

    // The name is one that the transport knows. A trace may be missing.
    UdsChannel(std::shared_ptr<Transport> transport, const std::string& name, std::shared_ptr<PduTrace> trace);
    UdsChannel(const UdsChannel&) = delete;
    UdsChannel& operator=(const UdsChannel&) = delete;
    ~UdsChannel();

    // Throws as Transport::open does.
    void start();
    // Requests that wait or are on the link end as Stopped.
    void stop();
    // Or as Closed.
    void close();
    State state() const;
    const std::string& name() const noexcept;
    Clock& clock() const noexcept;

    // For the requests that come after it.
    void setTiming(const UdsTiming& timing);

    // Whether the client has been called already, on this thread. A channel that isn't open ends the request at once.
    bool submit(UdsRequest&& request, std::shared_ptr<UdsClient> client);
    // Of a thing that is gone when its time comes nothing is left. False when the channel is closed, or there is no thread
    // to be had: then it is never called.
    bool schedule(Clock::Time time, std::weak_ptr<UdsTimed> timed);

private:
    const std::shared_ptr<UdsTraffic> traffic_;
};

}  // namespace velkotx::host
