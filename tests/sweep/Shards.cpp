// Shares the cases out over child processes, and goes on behind a case that ended one.
#include "Shards.h"

#include "Check.h"

#include <sys/mman.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <span>
#include <stdexcept>
#include <vector>

namespace sweep {

namespace {

// The processor time that a case may take, and what it may under a sanitizer. A machine that does other things is given more.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr unsigned secondsForOneCase = 60;
#else
constexpr unsigned secondsForOneCase = 2;
#endif
constexpr std::size_t mostFailures = 10;

// Written by the child, read by the parent once the child has ended.
struct Share {
    std::size_t current = 0;
    Totals totals;
    pid_t process = 0;
};

class SharedMemory {
public:
    explicit SharedMemory(std::size_t count) : size_(count * sizeof(Share)) {
        memory_ = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory_ == MAP_FAILED) throw std::bad_alloc();
        shares_ = {new (memory_) Share[count], count};
    }
    ~SharedMemory() { munmap(memory_, size_); }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    std::span<Share> shares() const { return shares_; }

private:
    std::size_t size_;
    void* memory_;
    std::span<Share> shares_;
};

class Sweep {
public:
    Sweep(const std::string& name, const Cases& cases, const Plan& plan)
        : name_(name), cases_(cases), plan_(plan), memory_(plan.processes) {}

    Totals run() {
        const auto shares = memory_.shares();
        for (std::size_t i = 0; i < shares.size(); ++i) {
            shares[i].current = i * plan_.every;
            start(shares[i]);
        }
        for (Share& share : shares)
            while (!ended(share)) start(share);
        Totals sum;
        for (const Share& share : shares) add(sum, share.totals);
        return sum;
    }

private:
    static void add(Totals& sum, const Totals& part) {
        sum.cases += part.cases;
        sum.loaded += part.loaded;
        sum.refused += part.refused;
        sum.failed += part.failed;
        sum.largestAllocation = std::max(sum.largestAllocation, part.largestAllocation);
    }

    std::size_t stride() const { return plan_.every * plan_.processes; }

    void tell(Share& share, const std::string& failure) const {
        ++share.totals.failed;
        std::fprintf(stderr, "%s: %s: %s\n", name_.c_str(),
                     share.current < cases_.count() ? cases_.describe(share.current).c_str() : "at the end",
                     failure.c_str());
    }

    bool mayGoOn(const Share& share) const {
        return share.current < cases_.count() && share.totals.failed < mostFailures;
    }

    void start(Share& share) {
        std::fflush(nullptr);
        share.process = fork();
        if (share.process < 0) throw std::runtime_error(std::string("no process: ") + std::strerror(errno));
        if (share.process != 0) return;
        work(share);
        // Not _exit: the leak sanitizer looks at the end.
        std::exit(0);
    }

    // The watchdog ends the process by its signal, when it is busy or when it waits.
    static void watch() {
        const itimerval limit{{0, 0}, {secondsForOneCase, 0}};
        setitimer(ITIMER_PROF, &limit, nullptr);
        alarm(30 * secondsForOneCase);
    }

    void work(Share& share) const {
        std::vector<char> bytes;
        for (; mayGoOn(share); share.current += stride()) {
            watch();
            cases_.make(share.current, bytes);
            ++share.totals.cases;
            const Judgement judgement = check(bytes);
            ++(judgement.loaded ? share.totals.loaded : share.totals.refused);
            share.totals.largestAllocation = std::max(share.totals.largestAllocation, judgement.largestAllocation);
            if (!judgement.failure.empty()) tell(share, judgement.failure);
        }
        watch();
    }

    // Waits; false if the process died and its share goes on behind the case that it died of.
    bool ended(Share& share) {
        int status = 0;
        while (waitpid(share.process, &status, 0) < 0)
            if (errno != EINTR) throw std::runtime_error(std::string("waiting: ") + std::strerror(errno));
        if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return true;
        if (WIFSIGNALED(status))
            tell(share, std::string("ended by the signal ") + strsignal(WTERMSIG(status)));
        else
            tell(share, "ended with exit status " + std::to_string(WEXITSTATUS(status)));
        share.current += stride();
        return !mayGoOn(share);
    }

    const std::string& name_;
    const Cases& cases_;
    const Plan& plan_;
    SharedMemory memory_;
};

}  // namespace

Totals sweepFile(const std::string& name, const Cases& cases, const Plan& plan) {
    return Sweep(name, cases, plan).run();
}

}  // namespace sweep
