// A request whose answer the calling thread waits for.
#include "diag/BlockingRequest.h"

#include "diag/DiagFailure.h"

#include <otx/event/COtxSignalEventSource.h>

#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace velkotx::host {

namespace {

// Waits on an event source like everything that a sequence waits for, so that a cancelled run doesn't hang here.
class Waiting final : public UdsClient {
public:
    void completed(UdsOutcome&& outcome) override {
        COtxValue source;
        {
            const std::lock_guard guard(outcomeLock_);
            outcome_ = std::move(outcome);
            source = source_;
        }
        if (source.Type() != OTX::ValueType::Empty)
            source.EventSource().Signal();
    }

    UdsOutcome take(const std::string& channel) {
        for (;;) {
            COtxValue source;
            {
                const std::lock_guard guard(outcomeLock_);
                if (outcome_)
                    return std::move(*outcome_);
                if (source_.Type() == OTX::ValueType::Empty)
                    source_ = COtxSignalEventSource(OTX::EventKind::DiagService);
                source = source_;
            }
            COtxValue event;
            if (!source.EventSource().Wait(event))
                fail(OTX::Exceptions_e::InvalidStateException,
                     "cancelled while waiting for the response of '" + channel + "'");
        }
    }

private:
    // Guards both below.
    std::mutex outcomeLock_;
    std::optional<UdsOutcome> outcome_;
    COtxValue source_;
};

}  // namespace

UdsOutcome executeAndWait(UdsChannel& channel, UdsRequest&& request) {
    const auto waiting = std::make_shared<Waiting>();
    channel.submit(std::move(request), waiting);
    return waiting->take(channel.name());
}

}  // namespace velkotx::host
