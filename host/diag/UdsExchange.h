// One request with what is answered to it.
#pragma once

#include "diag/UdsTiming.h"

#include <transport/Transport.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velkotx::host {

struct UdsRequest {
    Pdu bytes;
    bool functional = false;
};

// How an exchange ended.
struct UdsOutcome {
    enum class End {
        Answered,        // there are responses
        Suppressed,      // none, as the request wished: all went well
        Silent,          // none in time
        NeverSent,       // announced, but none in time
        LinkBroken,      // the transport failed
        Stopped,         // the communication was stopped meanwhile
        Closed,          // the channel was closed meanwhile
        Crowded          // too many requests wait for the link
    };

    End end = End::Silent;
    std::vector<ReceivedPdu> responses;  // the final ones, in the order in which they came
    Clock::Duration waited{0};
    unsigned pending = 0;   // how often a response was announced
    std::string complaint;  // of the transport
};

// Who gets the outcome.
class UdsClient {
public:
    virtual ~UdsClient() = default;

    // Called once, by the thread that submitted or by the channel's own, without a lock of the channel. May submit again.
    virtual void completed(UdsOutcome&& outcome) = 0;
};

// Can be put aside whenever nothing has come yet, so that whoever is free goes on with it. One thread at a time.
class UdsExchange {
public:
    enum class Patience { Poll, Wait };

    UdsExchange(UdsRequest&& request, std::shared_ptr<UdsClient> client);

    // Sends the request. Throws as the link does.
    void begin(Link& link, const Clock& clock, const UdsTiming& timing);
    // Takes what has come, or waits for it, until the pause has come; true when the exchange has ended. Throws as the link
    // does.
    bool proceed(Link& link, const Clock& clock, Patience patience, Clock::Time pause);
    // Ends it as it is.
    void end(UdsOutcome::End end, const std::string& complaint = {});
    // Hands the outcome to the client.
    void report();

    const UdsRequest& request() const noexcept { return request_; }
    const UdsOutcome& outcome() const noexcept { return outcome_; }
    // When the request went out; 0 before that.
    Clock::Time sent() const noexcept { return sent_; }

private:
    void take(ReceivedPdu&& received);
    bool answered() const;
    Clock::Time deadline() const;
    void runOut(const Clock& clock);

    UdsRequest request_;
    std::shared_ptr<UdsClient> client_;
    UdsTiming timing_;
    bool silenceIsGood_;
    Clock::Time sent_{0};
    // Of those that have announced a response: until when it has to come.
    std::map<std::string, Clock::Time> pendingUntil_;
    UdsOutcome outcome_;
};

}  // namespace velkotx::host
