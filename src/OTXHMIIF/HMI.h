// The conversation with the host about screens.
#pragma once

#include <OTXHMIIF/ScreenArguments.h>
#include <otx/value/COtxValue.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace velkotx {
class HostEventSink;
}
namespace otxns {
class OtxContext;
}

namespace OTX {

class Screen;

// Made by the context for each host, which it holds weakly; a new host ends all screens without a word. A screen is its
// name. Any thread.
//
// The host hears of an opening, and of the closing of all, under the lock of the screens. Screens that leave are ended when
// the thread that took them out has let go of it: their own threads may be in the middle of a message, in which the host
// wants the lock. From the moment they are taken out they send no more. A thread that tells the host of a flow's stop holds a
// lock that the host may want too: what it takes out is ended when it has let go of that.
class HMI {
public:
    HMI(otxns::OtxContext& context, std::weak_ptr<velkotx::HostEventSink> host);
    HMI(const HMI&) = delete;
    HMI& operator=(const HMI&) = delete;
    ~HMI();

    // On a flow's thread; a modal screen blocks it until the screen is closed or the run cancelled. When a screen of the
    // name is open already, the host is told of a second one, and the first is the one that stays and is waited for.
    void openScreen(const std::string& name, bool modal, const ScreenArguments& arguments);
    // A modal screen.
    void openDialog(const std::string& name, ScreenArguments::Values parameters, ScreenArguments::Variables out);
    // Whether there was a screen to close.
    bool closeScreen(const std::string& name);
    // All of them, even if the host throws; its first exception is thrown then.
    void closeAll();
    // Ends all of them without a word to the host.
    void endAll();
    // Ends those that were taken out and not yet ended.
    void awaitEnds();
    // False for a screen that isn't open, and when the host is gone.
    bool highlight(const std::string& name);
    bool screenIsOpen(const std::string& name);
    // Null for a screen that isn't open.
    std::shared_ptr<Screen> getScreen(const std::string& name);

    // Takes a message of the host whose "eventType" begins with "HMI-". Throws std::out_of_range for a missing entry,
    // std::runtime_error for a screen or parameter that isn't there and for a type that nobody knows, and
    // std::system_error when a screen is closed from inside a message of its own thread.
    void inputEvent(const COtxValue& message);

private:
    class Section;
    using Open = std::map<std::string, std::shared_ptr<Screen>>;
    // What is taken out moves there as it is, without memory: screens end also where there is none.
    using Leaving = std::multimap<std::string, std::shared_ptr<Screen>>;

    COtxValue enter(const std::string& name, bool modal, const ScreenArguments& arguments);
    bool remove(const std::string& name);
    void takeAllOut();
    void takeOut(Open::iterator screen);

    otxns::OtxContext& context_;
    const std::weak_ptr<velkotx::HostEventSink> host_;
    // Guards what follows.
    std::recursive_mutex mutex_;
    Open screens_;
    // Taken out, and not yet ended.
    Leaving leaving_;
    int depth_ = 0;
};

}  // namespace OTX
