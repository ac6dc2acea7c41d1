// Names the document that was running when the process crashes or hangs.
#include "Watch.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace documents {

namespace {

#if defined(__SANITIZE_THREAD__)
constexpr unsigned secondsForADocument = 600;
#elif defined(__SANITIZE_ADDRESS__)
constexpr unsigned secondsForADocument = 300;
#else
constexpr unsigned secondsForADocument = 120;
#endif
constexpr int crashes[] = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

// In place, because a signal handler may not touch the heap.
std::array<char, 1024> running{};
std::array<struct sigaction, 65> previous{};
std::array<char, 65536> signalStack{};

void write(const char* text) {
    const std::size_t size = std::strlen(text);
    for (std::size_t done = 0; done < size;) {
        const ssize_t step = ::write(STDERR_FILENO, text + done, size - done);
        if (step <= 0) return;
        done += static_cast<std::size_t>(step);
    }
}

void name(const char* what) {
    write("\notx_documents: ");
    write(what);
    write(running[0] == '\0' ? "no document" : running.data());
    write("\n");
}

// The earlier action (a sanitizer's report, or the end of the process) comes when the fault or abort repeats itself.
void crashed(int signal) {
    name("crashed in ");
    sigaction(signal, &previous[static_cast<std::size_t>(signal)], nullptr);
}

void hangs(int) {
    name("hangs in ");
    _exit(1);
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_ONSTACK;
    sigaction(signal, &action, &previous[static_cast<std::size_t>(signal)]);
}

}  // namespace

void watchForCrashes() {
    // A stack that has run out needs another one for the handler; a sanitizer may have made one already.
    stack_t present{};
    if (sigaltstack(nullptr, &present) == 0 && (present.ss_flags & SS_DISABLE) != 0) {
        stack_t own{};
        own.ss_sp = signalStack.data();
        own.ss_size = signalStack.size();
        sigaltstack(&own, nullptr);
    }
    for (const int signal : crashes) handle(signal, crashed);
    handle(SIGALRM, hangs);
}

void nowRunning(const std::string& document) {
    const std::size_t size = document.copy(running.data(), running.size() - 1);
    running[size] = '\0';
    alarm(document.empty() ? 0 : secondsForADocument);
}

}  // namespace documents
