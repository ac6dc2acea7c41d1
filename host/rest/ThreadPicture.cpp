// What the threads of the process do at a moment.
#include "rest/ThreadPicture.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>
#include <vector>

namespace velkotx::host {

namespace {

namespace fs = std::filesystem;

// A program that is watched for data races has a thread of the watcher's, which sleeps and looks in turn.
#if defined(__SANITIZE_THREAD__)
constexpr bool isWatchedForRaces = true;
#elif defined(__has_feature)
constexpr bool isWatchedForRaces = __has_feature(thread_sanitizer);
#else
constexpr bool isWatchedForRaces = false;
#endif

// "NUMBER 0xARGUMENT ..."; "running" and the like have no number.
std::optional<std::vector<unsigned long long>> numbersOf(const std::string& line) {
    std::vector<unsigned long long> numbers;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        const bool isHexadecimal = word.starts_with("0x");
        const char* const begin = word.data() + (isHexadecimal ? 2 : 0);
        const char* const end = word.data() + word.size();
        unsigned long long number = 0;
        const auto [stop, error] = std::from_chars(begin, end, number, isHexadecimal ? 16 : 10);
        if (error != std::errc() || stop != end)
            return {};
        numbers.push_back(number);
    }
    return numbers;
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// The lines of a status that count how often the thread was taken off a processor.
std::string switchesOf(const std::string& status) {
    const std::size_t begin = status.find("voluntary_ctxt_switches:");
    return begin != std::string::npos ? status.substr(begin) : std::string();
}

std::optional<pid_t> numberOf(const fs::path& task) {
    const std::string name = task.filename();
    pid_t number = 0;
    if (std::from_chars(name.data(), name.data() + name.size(), number).ec != std::errc())
        return {};
    return number;
}

bool isOfWatcher(const std::string& systemCall) {
    if (!isWatchedForRaces)
        return false;
    const auto numbers = numbersOf(systemCall);
    return numbers && !numbers->empty() && (numbers->front() == SYS_nanosleep || numbers->front() == SYS_clock_nanosleep);
}

}  // namespace

bool waitsForThreads(const std::string& systemCall) {
    const auto numbers = numbersOf(systemCall);
    if (!numbers || numbers->size() < 5 || numbers->front() != SYS_futex)
        return false;
    const auto operation = static_cast<int>((*numbers)[2]) & FUTEX_CMD_MASK;
    const bool hasNoLimit = (*numbers)[4] == 0;
    return hasNoLimit && (operation == FUTEX_WAIT || operation == FUTEX_WAIT_BITSET || operation == FUTEX_LOCK_PI);
}

bool waitsForTheWorld(const std::string& systemCall) {
    constexpr std::array<unsigned long long, 5> calls{
#ifdef SYS_poll
        SYS_poll,
#else
        SYS_ppoll,
#endif
        SYS_ppoll, SYS_pselect6, SYS_read, SYS_futex};
    const auto numbers = numbersOf(systemCall);
    if (!numbers || numbers->empty())
        return false;
    for (const unsigned long long call : calls)
        if (numbers->front() == call)
            return true;
    return false;
}

std::optional<ThreadPicture> pictureOfRest(const std::set<pid_t>& host) {
    const pid_t own = gettid();
    ThreadPicture picture;
    std::error_code failure;
    for (fs::directory_iterator task("/proc/self/task", failure), end; !failure && task != end; task.increment(failure)) {
        const auto number = numberOf(task->path());
        if (!number)
            return {};
        if (*number == own)
            continue;
        // Ahead of the counts, so that a thread that moves in between has another count next time.
        const std::string systemCall = contentOf(task->path() / "syscall");
        if (isOfWatcher(systemCall))
            continue;
        if (!(host.contains(*number) ? waitsForTheWorld(systemCall) : waitsForThreads(systemCall)))
            return {};
        const std::string switches = switchesOf(contentOf(task->path() / "status"));
        if (switches.empty())
            return {};
        picture.emplace(*number, systemCall + switches);
    }
    if (failure || picture.empty())
        return {};
    return picture;
}

}  // namespace velkotx::host
