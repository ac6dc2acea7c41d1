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

template <class Screens>
std::exception_ptr waitForEnds(const Screens& screens) {
    std::exception_ptr failure;
    for (const auto& [name, screen] : screens) failure = first(failure, failureOf([&one = *screen] { one.end(); }));
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

    // Lets go and, at the outermost, ends the screens that were taken out, unless that is left to awaitEnds. Throws what
    // their ends throw.
    void end() {
        Leaving leaving;
        if (--hmi_.depth_ == 0 && !otxns::OtxContext::IsTellingOfStop()) leaving.swap(hmi_.leaving_);
        hmi_.mutex_.unlock();
        held_ = false;
        if (const auto failure = waitForEnds(leaving)) std::rethrow_exception(failure);
    }

private:
    HMI& hmi_;
    bool held_ = true;
};

HMI::HMI(otxns::OtxContext& context, std::weak_ptr<velkotx::HostEventSink> host)
    : context_(context), host_(std::move(host)) {}

HMI::~HMI() {
    endAll();
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

// The source is copied under the lock: the host may close the screen in the next instant. Where the host throws, the screen
// goes like one that was taken out: its thread may be in the middle of a message.
COtxValue HMI::enter(const std::string& name, bool modal, const ScreenArguments& arguments) {
    Section section(*this);
    auto screen = std::make_shared<Screen>(ScreenHost(host_, context_.ContentLock(), name));
    const auto entered = leaving_.emplace(name, screen);
    screen->open(modal, arguments);
    // When a screen of the name is open, the host has heard of this one, and it goes without a word: this is meant.
    const auto [entry, isNew] = screens_.try_emplace(name, screen);
    if (isNew) leaving_.erase(entered);
    COtxValue closed = entry->second->closedSource();
    // Whoever lets go of a screen last may have to wait for its thread: not this one, which the host's answer may need.
    screen.reset();
    section.end();
    return closed;
}

bool HMI::remove(const std::string& name) {
    Section section(*this);
    const auto found = screens_.find(name);
    const bool isOpen = found != screens_.end();
    if (isOpen) takeOut(found);
    section.end();
    return isOpen;
}

bool HMI::closeScreen(const std::string& name) {
    const auto screen = getScreen(name);
    if (screen == nullptr) return false;
    screen->closeScreen();
    return remove(name);
}

void HMI::closeAll() {
    Section section(*this);
    const auto open = screens_;
    std::exception_ptr failure;
    for (const auto& [name, screen] : open) {
        // The host may have come back with an end of it.
        if (screens_.contains(name)) failure = first(failure, failureOf([&one = *screen] { one.closeScreen(); }));
    }
    takeAllOut();
    failure = first(failure, failureOf([&] { section.end(); }));
    if (failure != nullptr) std::rethrow_exception(failure);
}

void HMI::endAll() {
    const Section section(*this);
    takeAllOut();
}

// What they throw is nobody's concern.
void HMI::awaitEnds() { const Section section(*this); }

void HMI::takeAllOut() {
    while (!screens_.empty()) takeOut(screens_.begin());
}

void HMI::takeOut(Open::iterator screen) { leaving_.insert(screens_.extract(screen))->second->leave(); }

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
