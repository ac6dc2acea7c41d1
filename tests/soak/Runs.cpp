// One run after the other.
#include "Parts.h"
#include "Resident.h"

#include <objects/SilentEventSink.h>
#include <otx/value/IString.h>
#include <velkotx/Sequencer.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>

namespace soak {

namespace {

constexpr std::size_t runsOfASequencer = 1000;
constexpr std::size_t warmUpShare = 20;
constexpr std::size_t allowedPercent = 1;

class Soak {
public:
    Soak(const std::string& document, std::size_t runs) : document_(document), runs_(runs) {}

    // A sequencer from its making to its end.
    bool live() {
        std::istringstream stream(document_);
        const auto sequencer = velkotx::CreateSequencer(stream);
        sequencer->SetHost(host_);
        for (std::size_t run = 0; run < runsOfASequencer && done_ < runs_; ++run, ++done_) {
            const std::string result = sequencer->Run("main", COtxValue(), false).ToJSON().String();
            if (expected_.empty()) expected_ = result;
            if (result == expected_) continue;
            std::fprintf(stderr, "run %zu gives %s instead of %s\n", done_, result.c_str(), expected_.c_str());
            return false;
        }
        return true;
    }

    void measure() {
        largest_ = std::max(largest_, residentMemory());
        if (done_ <= runs_ / warmUpShare || warm_ == 0)
            warm_ = largest_;
        else
            isMeasuredWarm_ = true;
    }

    bool isOver() const { return done_ == runs_; }

    // What was measured says something only if all runs were done, and some of them after the warm-up.
    bool isWhole() const {
        if (!isOver()) std::fprintf(stderr, "the time is up after %zu runs of %zu\n", done_, runs_);
        if (isOver() && !isMeasuredWarm_) std::fprintf(stderr, "%zu runs are a warm-up and nothing else\n", runs_);
        return isOver() && isMeasuredWarm_;
    }

    bool isFlat(std::chrono::seconds took) const {
        const std::size_t growth = largest_ - warm_;
        std::printf("%zu runs in %lld s: %zu bytes after the warm-up, %zu at the most, %zu more\n", done_,
                    static_cast<long long>(took.count()), warm_, largest_, growth);
        return growth * 100 <= warm_ * allowedPercent;
    }

private:
    const std::string document_;
    const std::size_t runs_;
    const std::shared_ptr<velkotx::host::SilentEventSink> host_ = std::make_shared<velkotx::host::SilentEventSink>();
    std::size_t done_ = 0;
    std::string expected_;
    std::size_t warm_ = 0;
    bool isMeasuredWarm_ = false;
    std::size_t largest_ = 0;
};

}  // namespace

bool runOverAndOver(const std::string& document, std::size_t runs, std::chrono::seconds longest) {
    const auto begin = std::chrono::steady_clock::now();
    const auto took = [&] { return std::chrono::steady_clock::now() - begin; };
    Soak soak(document, runs);
    do {
        if (!soak.live()) return false;
        soak.measure();
    } while (!soak.isOver() && took() < longest);
    const bool isFlat = soak.isFlat(std::chrono::duration_cast<std::chrono::seconds>(took()));
    return soak.isWhole() && isFlat;
}

}  // namespace soak
