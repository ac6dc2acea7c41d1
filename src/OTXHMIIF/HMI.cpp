// The open screens.
#include <OTXContext/OtxContext.h>
#include <OTXEventActions/Waiting.h>
#include <OTXHMIIF/HMI.h>
#include <OTXHMIIF/Screen.h>
#include <Trace.h>
#include <Unwind.h>

#include <exception>
#include <utility>

namespace OTX {

namespace {

// Gives what the action throws.
template <class Action>
std::exception_ptr failureOf(Action action) {
    try {
        action();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

std::exception_ptr first(std::exception_ptr earlier, std::exception_ptr later) {
    return earlier != nullptr ? earlier : later;
}

std::exception_ptr endAll(const std::vector<std::shared_ptr<Screen>>& screens) {
    std::exception_ptr failure;
    for (const auto& screen : screens) failure = first(failure, failureOf([&] { screen->end(); }));
    return failure;
}

}  // namespace

// Holds the lock. A host that is told something under it may come back on the same thread.
class HMI::Section {
public:
    explicit Section(HMI& hmi) : hmi_(hmi) {
        hmi_.mutex_.lock();
        ++hmi_.depth_;
    }
    // After a failure; else end has been called, which has let go.
    ~Section() {
        if (held_) failureOf([this] { end(); });
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    // Lets go and, at the outermost, ends the screens that were taken out. Throws what their ends throw.
    void end() {
        std::vector<std::shared_ptr<Screen>> leaving;
        if (--hmi_.depth_ == 0) leaving.swap(hmi_.leaving_);
        hmi_.mutex_.unlock();
        held_ = false;
        if (const auto failure = endAll(leaving)) std::rethrow_exception(failure);
    }

private:
    HMI& hmi_;
    bool held_ = true;
};

HMI::HMI(otxns::OtxContext& context, std::weak_ptr<velkotx::HostEventSink> host)
    : context_(context), host_(std::move(host)) {}

HMI::~HMI() {
    std::vector<std::shared_ptr<Screen>> left;
    for (const auto& [name, screen] : screens_) left.push_back(screen);
    endAll(left);
}

void HMI::openScreen(const std::string& name, bool modal, const ScreenArguments& arguments) {
    OTX_TRACE(4, "modal: " << modal);
    const COtxValue closed = enter(name, modal, arguments);
    COtxValue ignored;
    if (modal) otxns::waitFor(closed, ignored, context_);
}

void HMI::openDialog(const std::string& name, ScreenArguments::Values parameters, ScreenArguments::Variables out) {
    openScreen(name, true, {std::move(parameters), {}, {}, std::move(out)});
}

// The source is copied under the lock: the host may close the screen in the next instant.
COtxValue HMI::enter(const std::string& name, bool modal, const ScreenArguments& arguments) {
    Section section(*this);
    const auto screen = std::make_shared<Screen>(ScreenHost(host_, context_.ContentLock(), name), modal, arguments);
    const auto [entry, isNew] = screens_.try_emplace(name, screen);
    // The host has heard of it, and it goes without a word: this is meant.
    if (!isNew) leaving_.push_back(screen);
    COtxValue closed = entry->second->closedSource();
    section.end();
    return closed;
}

bool HMI::remove(const std::string& name) {
    Section section(*this);
    const auto found = screens_.extract(name);
    if (found) leaving_.push_back(found.mapped());
    section.end();
    return static_cast<bool>(found);
}

bool HMI::closeScreen(const std::string& name) {
    const auto screen = getScreen(name);
    if (screen == nullptr) return false;
    screen->closeScreen();
    return remove(name);
}

void HMI::closeAll() {
    Section section(*this);
    // The host may come back with an end of one of them.
    const auto open = screens_;
    std::exception_ptr failure;
    for (const auto& [name, screen] : open) failure = first(failure, failureOf([&] { screen->closeScreen(); }));
    for (const auto& [name, screen] : std::exchange(screens_, {})) leaving_.push_back(screen);
    failure = first(failure, failureOf([&] { section.end(); }));
    if (failure != nullptr) std::rethrow_exception(failure);
}

bool HMI::highlight(const std::string& name) {
    const auto screen = getScreen(name);
    return screen != nullptr && screen->highlight();
}

bool HMI::screenIsOpen(const std::string& name) {
    const std::lock_guard guard(mutex_);
    return screens_.contains(name);
}

std::shared_ptr<Screen> HMI::getScreen(const std::string& name) {
    OTX_TRACE(4, name);
    {
        const std::lock_guard guard(mutex_);
        const auto found = screens_.find(name);
        if (found != screens_.end()) return found->second;
    }
    OTX_TRACE(1, name << " not open");
    return nullptr;
}

}  // namespace OTX
