// One request with what is answered to it.
#include "diag/UdsExchange.h"

#include "diag/UdsProtocol.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

namespace {

// PDUs that are thrown away before a request, and taken in one go without waiting.
constexpr int mostStale = 256;
constexpr int mostPolled = 64;

}  // namespace

UdsExchange::UdsExchange(UdsRequest&& request, std::shared_ptr<UdsClient> client)
    : request_(std::move(request)),
      client_(std::move(client)),
      silenceIsGood_(uds::suppressesPositive(request_.bytes)) {}

void UdsExchange::begin(Link& link, const Clock& clock, const UdsTiming& timing) {
    timing_ = timing;
    sent_ = clock.now();
    // What comes late belongs to a request that was given up.
    for (int stale = 0; stale < mostStale && link.receive(sent_); ++stale) {
    }
    link.send(request_.bytes, request_.functional);
    sent_ = clock.now();
}

bool UdsExchange::proceed(Link& link, const Clock& clock, Patience patience, Clock::Time pause) {
    const auto paused = [&] { return pause != Clock::Time::max() && clock.now() >= pause; };
    for (int taken = 0;; ++taken) {
        if (answered()) {
            end(UdsOutcome::End::Answered);
            outcome_.waited = clock.now() - sent_;
            return true;
        }
        // At least one is taken each time, so that an exchange goes on however short its pauses are.
        if (patience == Patience::Poll ? taken == mostPolled : taken > 0 && paused())
            return false;
        auto received = link.receive(patience == Patience::Poll ? sent_ : std::min(deadline(), pause));
        // What comes too late without being an answer must not keep the exchange alive: a busy line never falls silent.
        const bool late = received && received->time > deadline();
        if (received)
            take(std::move(*received));
        if (received && (!late || answered()))
            continue;
        if (!received && (patience == Patience::Poll || paused()) && clock.now() < deadline())
            return false;
        runOut(clock);
        return true;
    }
}

void UdsExchange::take(ReceivedPdu&& received) {
    switch (uds::answerTo(request_.bytes, received.bytes)) {
        case uds::Answer::Foreign:
            return;
        case uds::Answer::Pending:
            ++outcome_.pending;
            pendingUntil_[received.controlUnit] = received.time + timing_.p2Star;
            // An announced response comes even if it was to be suppressed (ISO 14229-1).
            silenceIsGood_ = false;
            return;
        case uds::Answer::Negative:
        case uds::Answer::Positive:
            if (!pendingUntil_.empty())
                pendingUntil_.erase(received.controlUnit);
            outcome_.responses.push_back(std::move(received));
    }
}

// Functionally addressed, anybody may still answer until the time is over.
bool UdsExchange::answered() const { return !request_.functional && !outcome_.responses.empty(); }

Clock::Time UdsExchange::deadline() const {
    Clock::Time latest = sent_ + timing_.p2;
    for (const auto& [controlUnit, until] : pendingUntil_)
        latest = std::max(latest, until);
    return pendingUntil_.empty() ? latest : std::min(latest, sent_ + timing_.pendingCap);
}

void UdsExchange::runOut(const Clock& clock) {
    const Clock::Time now = clock.now();
    outcome_.waited = now - sent_;
    if (now < deadline())
        // Only a closed link gives up before the time.
        return end(UdsOutcome::End::Closed);
    if (!outcome_.responses.empty())
        return end(UdsOutcome::End::Answered);
    if (silenceIsGood_)
        return end(UdsOutcome::End::Suppressed);
    end(outcome_.pending > 0 ? UdsOutcome::End::NeverSent : UdsOutcome::End::Silent);
}

void UdsExchange::end(UdsOutcome::End end, const std::string& complaint) {
    outcome_.end = end;
    outcome_.complaint = complaint;
}

void UdsExchange::report() {
    if (client_ != nullptr)
        std::exchange(client_, nullptr)->completed(std::move(outcome_));
}

}  // namespace velkotx::host
