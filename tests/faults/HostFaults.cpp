// Runs whose host throws at one of the messages.
#include "Document.h"
#include "Parts.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IString.h>

#include <cxxabi.h>

#include <atomic>
#include <stdexcept>
#include <string>

namespace faults {

namespace {

enum class Thrown { standard, otx, integer };

struct Kind {
    const char* name;
    Thrown thrown;
};
constexpr Kind kinds[] = {{"standard", Thrown::standard}, {"otx", Thrown::otx}, {"integer", Thrown::integer}};

class RefusingHost : public velkotx::HostEventSink {
public:
    explicit RefusingHost(Thrown thrown) : thrown_(thrown) {}

    // Refuses the n-th message from now on, from 1; 0 for none.
    void refuse(std::size_t message) {
        count_ = 0;
        refused_ = message;
        hasRefused_ = false;
    }
    bool hasRefused() const { return hasRefused_; }
    // Whether the message that was refused last told of a change of a screen.
    bool hasRefusedChange() const { return hasRefusedChange_; }

    void sendRequest(const COtxValue& message) override {
        if (++count_ != refused_) return;
        const std::string type = message.Map().at(COtxString("eventType")).String();
        hasRefusedChange_ = type == "HMI-InParameterValueChanged";
        hasRefused_ = true;
        switch (thrown_) {
            case Thrown::standard: throw std::runtime_error("refused");
            case Thrown::otx: throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "refused");
            case Thrown::integer: throw 1;
        }
    }

private:
    const Thrown thrown_;
    std::atomic<std::size_t> count_{0};
    std::atomic<std::size_t> refused_{0};
    std::atomic<bool> hasRefused_{false};
    std::atomic<bool> hasRefusedChange_{false};
};

}  // namespace

std::vector<Series> refusingHost(const std::string& document) {
    std::vector<Series> all;
    for (const Kind& kind : kinds) {
        const auto host = std::make_shared<RefusingHost>(kind.thrown);
        const auto last = std::make_shared<std::shared_ptr<velkotx::Sequencer>>();
        Series series;
        series.name = std::string("host-") + kind.name;
        series.attempt = [document, host, last](std::size_t place) {
            Attempt attempt;
            *last = load(document);
            (*last)->SetHost(host);
            host->refuse(place);
            try {
                attempt.result = run(**last);
            } catch (abi::__forced_unwind&) {
                throw;
            } catch (...) {
                attempt.failure = std::current_exception();
            }
            attempt.wasHit = host->hasRefused();
            host->refuse(0);
            return attempt;
        };
        series.repeat = [document, host, last] {
            const auto sequencer = *last ? std::move(*last) : load(document);
            last->reset();
            sequencer->SetHost(host);
            return run(*sequencer);
        };
        // The thread of a screen's changes ends without a word; no other message does.
        series.mayPass = [host](std::size_t) { return host->hasRefusedChange(); };
        all.push_back(std::move(series));
    }
    return all;
}

}  // namespace faults
