// A bomb in a process of its own.
#include "Blast.h"

#include "Documents.h"
#include "LaneDocuments.h"

#include <pthread.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <stdexcept>

namespace bombs {

namespace {

// Against a hang; what is demanded is much less.
constexpr unsigned secondsForOneBomb = 60;
constexpr char border = '\0';

std::string usualDocument() {
    using namespace api;
    return document(procedure("main", call("a", "inner") + parallel("n", {increment("b", "o"), ""}), integer("outParam", "o", 6)) +
                    procedure("inner", handler("h", throwUser("t", "q", "t"), "")));
}

void* start(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

void onThread(std::size_t stackSize, const std::function<void()>& work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread{};
    if (pthread_create(&thread, &attributes, start, const_cast<std::function<void()>*>(&work)) != 0) std::abort();
    pthread_join(thread, nullptr);
}

void say(int pipe, const std::string& text) {
    const std::string whole = text.substr(0, 1000) + border;
    if (write(pipe, whole.data(), whole.size()) < 0) std::abort();
}

// How many lanes there can be is the system's matter. A process that may have all of them would leave none to others.
void limitThreads() {
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    constexpr rlim_t addresses = rlim_t{4} << 30U;
    const rlimit limit{addresses, addresses};
    setrlimit(RLIMIT_AS, &limit);
#endif
}

[[noreturn]] void work(int pipe, const Bomb& bomb, const std::string& input, std::size_t stackSize) {
    alarm(secondsForOneBomb);
    limitThreads();
    onThread(stackSize, [&] {
        say(pipe, bomb.use(input));
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        say(pipe, std::to_string((usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
                                 (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000));
        say(pipe, outcomeOfDocument(usualDocument()));
    });
    std::exit(0);
}

std::string readAll(int pipe) {
    std::string all;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(pipe, buffer, sizeof buffer)) != 0;) {
        if (size > 0)
            all.append(buffer, static_cast<std::size_t>(size));
        else if (errno != EINTR)
            throw std::runtime_error(std::strerror(errno));
    }
    return all;
}

std::string taken(std::string& all) {
    const std::size_t end = all.find(border);
    std::string text = all.substr(0, end);
    all.erase(0, end == std::string::npos ? end : end + 1);
    return text;
}

std::chrono::milliseconds timeOf(const std::string& milliseconds) {
    long long count = 0;
    std::from_chars(milliseconds.data(), milliseconds.data() + milliseconds.size(), count);
    return std::chrono::milliseconds(count);
}

std::string deathOf(int status) {
    if (WIFSIGNALED(status)) return strsignal(WTERMSIG(status));
    return WEXITSTATUS(status) != 0 ? "exit status " + std::to_string(WEXITSTATUS(status)) : "";
}

}  // namespace

std::string usualOutcome() { return "finished {\"o\":7}"; }

Blast blast(const Bomb& bomb, const std::string& input, std::size_t stackSize) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error(std::strerror(errno));
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error(std::strerror(errno));
    if (process == 0) work(ends[1], bomb, input, stackSize);
    close(ends[1]);
    std::string all = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    Blast result;
    result.outcome = taken(all);
    result.processorTime = timeOf(taken(all));
    result.next = taken(all);
    result.death = deathOf(status);
    result.memory = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    return result;
}

}  // namespace bombs
