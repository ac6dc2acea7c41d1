// What the library leaves alone: the process around it is the same before and after.
#include "Documents.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"
#include "ThreadCount.h"

#include <array>
#include <cfenv>
#include <clocale>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <locale>
#include <map>
#include <new>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

extern char** environ;

namespace {

using namespace api;

// What goes to standard output and standard error while this lives, whoever writes it.
class Captured {
public:
    Captured() : file_(memfd_create("captured", 0)) {
        std::fflush(nullptr);  // what was written before isn't part of it
        for (std::size_t i = 0; i < kept_.size(); ++i) {
            kept_[i] = dup(outputs[i]);
            dup2(file_, outputs[i]);
        }
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;
    ~Captured() { release(); }

    std::string release() {
        if (file_ < 0) return text_;
        std::fflush(nullptr);
        for (std::size_t i = 0; i < kept_.size(); ++i) {
            dup2(kept_[i], outputs[i]);
            close(kept_[i]);
        }
        std::array<char, 4096> bytes{};
        const ssize_t size = pread(file_, bytes.data(), bytes.size(), 0);
        text_.assign(bytes.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
        close(file_);
        file_ = -1;
        return text_;
    }

private:
    static constexpr std::array outputs{STDOUT_FILENO, STDERR_FILENO};
    int file_;
    std::array<int, outputs.size()> kept_{};
    std::string text_;
};

std::string handlerOfSignal(int signal) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0) return "none";
    return std::to_string(reinterpret_cast<std::uintptr_t>(action.sa_handler)) + " " + std::to_string(action.sa_flags);
}

// All that a library could change behind its host's back, by name.
std::map<std::string, std::string> surroundings() {
    std::map<std::string, std::string> found;
    for (char** variable = environ; *variable != nullptr; ++variable) found["environment " + std::string(*variable)] = "";
    for (int signal = 1; signal < NSIG; ++signal) found["signal " + std::to_string(signal)] = handlerOfSignal(signal);
    sigset_t blocked;
    sigemptyset(&blocked);
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    for (int signal = 1; signal < NSIG; ++signal)
        found["blocked " + std::to_string(signal)] = std::to_string(sigismember(&blocked, signal));
    found["C locale"] = std::setlocale(LC_ALL, nullptr);
    found["C++ locale"] = std::locale().name();
    found["folder"] = std::filesystem::current_path();
    const mode_t mask = umask(0);
    umask(mask);
    found["file mask"] = std::to_string(mask);
    found["rounding"] = std::to_string(std::fegetround());
    found["terminate"] = std::to_string(reinterpret_cast<std::uintptr_t>(std::get_terminate()));
    found["new handler"] = std::to_string(reinterpret_cast<std::uintptr_t>(std::get_new_handler()));
    return found;
}

// What has changed since then, in words; empty if nothing.
std::string changes(const std::map<std::string, std::string>& before) {
    std::string text;
    const auto after = surroundings();
    for (const auto& [name, value] : before) {
        const auto found = after.find(name);
        if (found == after.end())
            text += name + " is gone; ";
        else if (found->second != value)
            text += name + ": " + value + " became " + found->second + "; ";
    }
    for (const auto& [name, value] : after)
        if (!before.contains(name)) text += name + ": " + value + " is new; ";
    return text;
}

class Quiet : public ScreenTest {
protected:

    // Loads a document, runs it with lanes, a timer, a screen and an uncaught exception in the end, and destroys it.
    void wholeLife() {
        beginScreens(parallel("n1", {append("b1", "list"), makeTimer("b2", "s", 1) + waitFor("b3", {"s"})}),
                     throwUser("t1", "q", "nobody takes it"), listOf("variable", "list") + source("variable", "s"));
        startUntilOpen("keys");
        EXPECT_EQ(control("nonsense"), "failure Invalid sequence control command: nonsense");
        go();
        EXPECT_EQ(outcome(), "exception UserException: nobody takes it");
        session.reset();
    }
};

TEST_F(Quiet, ChangesNothingAroundIt) {
    const auto before = surroundings();
    const auto threads = threadCount();
    Captured captured;
    wholeLife();
    const std::string printed = captured.release();
    EXPECT_EQ(changes(before), "");
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(isThreadCountReached(threads));
}

// A locale, a handler and a folder of the host's own stay its own, too.
TEST_F(Quiet, KeepsWhatTheHostHasSet) {
    std::signal(SIGUSR1, SIG_IGN);
    std::fesetround(FE_TOWARDZERO);
    std::locale::global(std::locale(std::locale::classic(), new std::numpunct<char>));
    const auto folder = std::filesystem::current_path();
    std::filesystem::current_path("/");
    const auto before = surroundings();
    wholeLife();
    EXPECT_EQ(changes(before), "");
    std::filesystem::current_path(folder);
    std::locale::global(std::locale::classic());
    std::fesetround(FE_TONEAREST);
    std::signal(SIGUSR1, SIG_DFL);
}

}  // namespace
