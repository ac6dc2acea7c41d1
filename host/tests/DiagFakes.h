// A network that tests script, and what they need around it.
#pragma once

#include <transport/Transport.h>
#include <vehicle/ManualClock.h>

#include <otx/value/COtxException.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace velkotx::host::testing {

using namespace std::chrono_literals;

struct FakeAnswer {
    Pdu bytes;
    Clock::Duration delay{0};
    std::string controlUnit = {};  // empty: the link's
};

// Answers as the handler says. Who waits for an answer moves the clock instead, so that no test takes time.
class FakeNetwork {
public:
    using Handler = std::function<std::vector<FakeAnswer>(const Pdu&, bool functional)>;

    void handle(Handler handler) {
        const std::lock_guard guard(networkLock_);
        handler_ = std::move(handler);
    }
    std::vector<FakeAnswer> answer(const Pdu& request, bool functional) {
        Handler handler;
        {
            const std::lock_guard guard(networkLock_);
            sent_.push_back(request);
            functional_.push_back(functional);
            handler = handler_;
        }
        changed_.notify_all();
        return handler ? handler(request, functional) : std::vector<FakeAnswer>{};
    }

    std::vector<Pdu> sent() const {
        const std::lock_guard guard(networkLock_);
        return sent_;
    }
    std::vector<bool> functional() const {
        const std::lock_guard guard(networkLock_);
        return functional_;
    }
    void awaitSent(std::size_t count) {
        std::unique_lock lock(networkLock_);
        changed_.wait(lock, [&] { return sent_.size() >= count; });
    }

    // While it holds, an answer that isn't there yet blocks for real, until the link is closed or it is let go.
    void hold(bool on) {
        {
            const std::lock_guard guard(networkLock_);
            holds_ = on;
        }
        changed_.notify_all();
    }
    void awaitHeld() {
        std::unique_lock lock(networkLock_);
        changed_.wait(lock, [&] { return held_ > 0; });
    }
    void block(const bool& closed) {
        std::unique_lock lock(networkLock_);
        ++held_;
        changed_.notify_all();
        changed_.wait(lock, [&] { return !holds_ || closed; });
        --held_;
    }
    void close(bool& closed) {
        {
            const std::lock_guard guard(networkLock_);
            closed = true;
        }
        changed_.notify_all();
    }
    bool isClosed(const bool& closed) const {
        const std::lock_guard guard(networkLock_);
        return closed;
    }

    ManualClock clock;
    std::vector<std::string> known{"Engine", "Body", "All"};

private:
    mutable std::mutex networkLock_;
    std::condition_variable changed_;
    Handler handler_;
    std::vector<Pdu> sent_;
    std::vector<bool> functional_;
    bool holds_ = false;
    int held_ = 0;
};

class FakeLink final : public Link {
public:
    FakeLink(std::shared_ptr<FakeNetwork> network, std::string name)
        : network_(std::move(network)), name_(std::move(name)) {}

    void send(std::span<const std::uint8_t> request, bool functional) override {
        const Clock::Time now = network_->clock.now();
        for (FakeAnswer& answer : network_->answer(Pdu(request.begin(), request.end()), functional))
            queue_.push_back({answer.controlUnit.empty() ? name_ : answer.controlUnit, std::move(answer.bytes),
                              now + answer.delay});
    }

    std::optional<ReceivedPdu> receive(Clock::Time until) override {
        if (network_->isClosed(closed_))
            return std::nullopt;
        const bool future = until > network_->clock.now();
        if (future && (queue_.empty() || queue_.front().time > network_->clock.now()))
            network_->block(closed_);
        if (network_->isClosed(closed_))
            return std::nullopt;
        if (queue_.empty() || queue_.front().time > until) {
            moveTo(until);
            return std::nullopt;
        }
        ReceivedPdu received = std::move(queue_.front());
        queue_.pop_front();
        moveTo(received.time);
        return received;
    }

    void close() override { network_->close(closed_); }

private:
    void moveTo(Clock::Time time) {
        const Clock::Time now = network_->clock.now();
        if (time > now)
            network_->clock.advance(time - now);
    }

    const std::shared_ptr<FakeNetwork> network_;
    const std::string name_;
    std::deque<ReceivedPdu> queue_;
    bool closed_ = false;
};

class FakeTransport final : public Transport {
public:
    explicit FakeTransport(std::shared_ptr<FakeNetwork> network) : network_(std::move(network)) {}

    std::unique_ptr<Link> open(const std::string& controlUnit) override {
        for (const std::string& name : network_->known) {
            if (name == controlUnit)
                return std::make_unique<FakeLink>(network_, controlUnit);
        }
        throw UnknownControlUnit("nobody is called " + controlUnit);
    }
    Clock& clock() override { return network_->clock; }

private:
    const std::shared_ptr<FakeNetwork> network_;
};

// The kind that is thrown; -1 for none. The text goes to `text`.
inline int kindOf(const std::function<void()>& action, std::string* text = nullptr) {
    try {
        action();
    } catch (const COtxValue& failure) {
        if (text != nullptr)
            *text = failure.Exception().Text();
        return static_cast<int>(failure.Exception().Kind());
    }
    return -1;
}

}  // namespace velkotx::host::testing
