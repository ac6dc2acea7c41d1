// A fault at each place of a piece of work, one after the other.
#include "Series.h"

#include "FailingMemory.h"

#include <otx/log/LogOutput.h>
#include <velkotx/Exceptions.h>

#include <cxxabi.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <map>
#include <new>
#include <thread>

namespace faults {

namespace {

constexpr unsigned secondsForOnePlace = 60;
constexpr std::size_t mostMistakes = 10;
constexpr std::size_t longestFailure = 4096;

// Printed when the process dies; no allocation may be needed then.
char whereabouts[200];

extern "C" void tellWhereabouts(int signal) {
    static_cast<void>(!write(STDERR_FILENO, whereabouts, std::strlen(whereabouts)));
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void watch() {
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGALRM}) std::signal(signal, tellWhereabouts);
}

// The numbers in a text differ from place to place.
std::string kindOf(std::string text) {
    for (char& character : text)
        if (character >= '0' && character <= '9') character = '#';
    return text.substr(0, 100);
}

// What is in use when the thread of the log has given back its lines.
MemoryInUse quietMemory() {
    Hvt::LogOutput::Flush(std::chrono::seconds(secondsForOnePlace));
    return memoryInUse();
}

class Run {
public:
    Run(const Series& series, std::size_t every) : series_(series), every_(every) {}

    bool holds() {
        watch();
        // What stays once and for all is there after the first time.
        expected_ = series_.repeat();
        std::thread([this] {
            static_cast<void>(series_.attempt(1));
            static_cast<void>(series_.repeat());
        }).join();
        repetition_.reserve(expected_.size() + longestFailure);
        outcome_.reserve(longestFailure);
        std::size_t place = 1;
        while (mistakes_ < mostMistakes && isHit(place)) place += every_;
        alarm(0);
        std::printf("%s: %zu places of %zu, %zu mistakes\n", series_.name.c_str(), attempts_, place - 1, mistakes_);
        for (const auto& [outcome, count] : outcomes_) std::printf("  %zu times %s\n", count, outcome.c_str());
        std::fflush(stdout);
        return mistakes_ == 0 && attempts_ != 0;
    }

private:
    void tell(std::size_t place, const std::string& mistake) {
        ++mistakes_;
        std::fprintf(stderr, "%s: place %zu: %s\n", series_.name.c_str(), place, mistake.c_str());
    }

    // Whether the work has such a place.
    bool isHit(std::size_t place) {
        std::snprintf(whereabouts, sizeof whereabouts, "%s: died at place %zu\n", series_.name.c_str(), place);
        alarm(secondsForOnePlace);
        const MemoryInUse before = quietMemory();
        bool isThere = false;
        bool isRepeated = false;
        // A new thread has no free blocks, and leaves none.
        std::thread([&] {
            isThere = isAttempted(place);
            isRepeated = repeats();
        }).join();
        if (!isThere) return false;
        const MemoryInUse after = quietMemory();
        ++attempts_;
        ++outcomes_[kindOf(outcome_)];
        if (outcome_.empty()) tell(place, "not a stated failure");
        if (outcome_ == passed && !series_.mayPass(place)) tell(place, "passed");
        if (outcome_ == passed && !isSame_) tell(place, "passed and gives something else");
        if (!isRepeated) tell(place, "the next time gives " + repetition_);
        if (after != before)
            tell(place, std::to_string(static_cast<long long>(after.blocks - before.blocks)) + " blocks are left, " +
                            std::to_string(static_cast<long long>(after.bytes - before.bytes)) + " bytes");
        return true;
    }

    // The texts are members, so that they are no memory that is left.
    bool isAttempted(std::size_t place) {
        const Attempt attempt = series_.attempt(place);
        const std::string outcome = attempt.failure ? stated(attempt.failure) : passed;
        outcome_.assign(outcome);
        isSame_ = attempt.result == expected_;
        return attempt.wasHit;
    }

    bool repeats() {
        try {
            const std::string result = series_.repeat();
            repetition_.assign(result);
        } catch (abi::__forced_unwind&) {
            throw;
        } catch (...) {
            const std::string failure = stated(std::current_exception());
            repetition_.assign(failure);
        }
        return repetition_ == expected_;
    }

    static constexpr const char* passed = "passed";

    const Series& series_;
    const std::size_t every_;
    std::string expected_;
    std::string outcome_;
    bool isSame_ = false;
    std::string repetition_;
    std::map<std::string, std::size_t> outcomes_;
    std::size_t attempts_ = 0;
    std::size_t mistakes_ = 0;
};

}  // namespace

std::string stated(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const velkotx::BoundaryException& known) {
        return std::string("boundary ") + known.what() + ": " + known.text();
    } catch (const std::bad_alloc&) {
        return "no memory";
    } catch (const std::exception& known) {
        return std::string("other ") + known.what();
    } catch (int number) {
        // Only the host's own.
        return "the number " + std::to_string(number);
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return "";
    }
}

bool holds(const Series& series, std::size_t every) {
    return Run(series, every).holds();
}

}  // namespace faults
