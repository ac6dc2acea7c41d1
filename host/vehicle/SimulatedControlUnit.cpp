// A control unit that answers requests as its description tells.
#include "vehicle/SimulatedControlUnit.h"

#include "vehicle/ServiceFrame.h"

#include <algorithm>
#include <optional>

namespace velkotx::host {

// What the faults make of a request.
struct SimulatedControlUnit::Plan {
    bool silent = false;
    bool resets = false;
    Clock::Duration delay{0};
    unsigned pendings = 0;
    Clock::Duration pendingInterval{0};
    std::optional<std::uint8_t> negative;
    const Bytes* answer = nullptr;
    std::optional<std::size_t> length;
};

namespace {

bool isQuietTesterPresent(std::span<const std::uint8_t> request) {
    return request.size() == 2 && request[0] == 0x3E && request[1] == 0x80;
}

void addPendings(std::vector<TimedAnswer>& answers, std::uint8_t service, unsigned times, Clock::Duration interval,
                 Clock::Time from) {
    for (unsigned time = 0; time < times; ++time)
        answers.push_back({negativeResponse(service, ResponseCode::ResponsePending), from + interval * time});
}

// 0x78 at the end of P2, and again and again in half of P2*, until the work is done.
void addPendingsOfWork(std::vector<TimedAnswer>& answers, std::uint8_t service, const SessionDescription& session,
                       Clock::Duration work, Clock::Time from) {
    constexpr int most = 10000;  // bounds what a very long work with a very short P2* queues
    if (work <= session.p2)
        return;
    const Clock::Duration interval = std::max({session.p2Star / 2, work / most, Clock::Duration{1}});
    for (Clock::Duration sent = session.p2; sent < work; sent += interval)
        answers.push_back({negativeResponse(service, ResponseCode::ResponsePending), from + sent});
}

}  // namespace

SimulatedControlUnit::SimulatedControlUnit(const ControlUnitDescription& unit)
    : unit_(unit), state_(unit), faults_(unit.faults) {}

std::vector<TimedAnswer> SimulatedControlUnit::take(std::span<const std::uint8_t> request, bool functional,
                                                    Clock::Time now) {
    if (request.empty())
        return {};
    const std::lock_guard guard(stateLock_);
    return takeLocked(request, functional, now);
}

std::vector<TimedAnswer> SimulatedControlUnit::takeLocked(std::span<const std::uint8_t> request, bool functional,
                                                          Clock::Time now) {
    if (now < state_.awayUntil)
        return {};
    if (now < state_.busyUntil) {
        if (isQuietTesterPresent(request))
            return {};
        return {{negativeResponse(request.front(), ResponseCode::BusyRepeatRequest), now}};
    }
    state_.expire(now);
    const Plan plan = applyFaults(request);
    if (plan.resets)
        state_.reset(now);
    if (plan.silent || plan.resets)
        return {};
    auto answers = carryOut(plan, request, functional, now);
    const Clock::Time done = answers.empty() ? now : answers.back().due;
    state_.lastActivity = std::max(state_.lastActivity, done);
    if (done > now)  // another thread's `now` may lie before this one's: that alone makes nobody busy
        state_.busyUntil = done;
    return answers;
}

SimulatedControlUnit::Plan SimulatedControlUnit::applyFaults(std::span<const std::uint8_t> request) {
    struct Apply {
        Plan& plan;

        void operator()(const DelayFault& fault) const { plan.delay += fault.time; }
        void operator()(const SilenceFault&) const { plan.silent = true; }
        void operator()(const NegativeFault& fault) const { plan.negative = fault.code; }
        void operator()(const PendingFault& fault) const {
            plan.pendings = fault.times;
            plan.pendingInterval = fault.interval;
        }
        void operator()(const ResetFault&) const { plan.resets = true; }
        void operator()(const WrongAnswerFault& fault) const { plan.answer = &fault.answer; }
        void operator()(const ShortAnswerFault& fault) const { plan.length = fault.length; }
    };
    Plan plan;
    for (const FaultDescription* fault : faults_.meet(request))
        std::visit(Apply{plan}, fault->effect);
    return plan;
}

std::vector<TimedAnswer> SimulatedControlUnit::carryOut(const Plan& plan, std::span<const std::uint8_t> request,
                                                        bool functional, Clock::Time now) {
    const std::uint8_t service = request.front();
    const SessionDescription& session = state_.session();  // its times hold for this request, also when it ends it
    const Clock::Time start = now + unit_.responseTime + plan.delay;
    std::vector<TimedAnswer> answers;
    addPendings(answers, service, plan.pendings, plan.pendingInterval, start);
    const Clock::Time workBegin = start + plan.pendingInterval * plan.pendings;
    Exchange exchange{unit_, state_, request, workBegin, {}, Clock::Duration{0}, false};
    FrameResult result;
    if (plan.negative)
        exchange.answer = negativeResponse(service, static_cast<ResponseCode>(*plan.negative));
    else
        result = serve(exchange, functional);
    addPendingsOfWork(answers, service, session, exchange.processing, workBegin);
    const Clock::Time done = workBegin + exchange.processing;
    if (plan.answer != nullptr)
        exchange.answer = *plan.answer;
    if (plan.length)
        exchange.answer.resize(std::min(*plan.length, exchange.answer.size()));
    if (!result.suppressed || !answers.empty())
        answers.push_back({std::move(exchange.answer), done});
    if (exchange.resets)
        state_.reset(done);
    return answers;
}

}  // namespace velkotx::host
