// An operator at a terminal.
#pragma once

#include "operator/Attendant.h"
#include "operator/Dialog.h"
#include "operator/ScreenView.h"

#include <deque>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velkotx::host {

class RunPort;

// Plain lines and prompts, for every terminal. Dialogs are asked one after the other in the order in which they were opened;
// while none waits, the lines are commands for the screens, modal or not.
//
// A second opening of an open name makes no second screen: it shares the fate of the first.
class Conversation : public Attendant {
public:
    // The stream is the terminal. Both outlive the conversation.
    Conversation(RunPort& port, std::ostream& terminal) : port_(port), terminal_(terminal) {}

    void take(const ScreenNews& news) override;
    void settle(const std::string& typed) override;
    void finish() override;

    std::size_t asks() const override;
    void obey(const std::string& line) override;
    void drop() override;
    void closeWithoutAnswer() override;

    bool isStale() const override;
    void refresh() override;

    std::vector<ScreenNews> openScreens() const override;

private:
    struct Asked {
        std::size_t number;
        std::unique_ptr<Dialog> dialog;
        bool isShown = false;
        bool isStale = false;  // something stands below it that isn't asked
    };
    struct Viewed {
        std::size_t number;
        ScreenView view;
        enum class Shown { not_yet, stale, current } shown = Shown::not_yet;
    };

    void open(const ScreenNews& news);
    void openScreen(const ScreenNews& news);
    void change(const ScreenNews& news);
    void highlight(const std::string& screen);
    // `why` follows the name.
    void close(const std::string& screen, const std::string& why);

    void dropGone();
    void conclude(const std::optional<COtxValue>& result);

    // Commands for the current screen.
    void obeyForScreen(const std::string& line);
    void listScreens();
    void setParameter(const std::string& nameAndValue);
    void closeScreen();
    void turnTo(const std::string& screen);

    std::deque<Asked>::iterator findDialog(const std::string& screen);
    Viewed* find(const std::string& screen);
    // Of the screens that are open: the one that was opened, highlighted or turned to last.
    Viewed& current() { return screens_.back(); }

    void say(const std::string& line);
    void say(const std::vector<std::string>& lines);
    void sayRefusal(const std::optional<std::string>& refusal);

    RunPort& port_;
    std::ostream& terminal_;
    std::size_t count_ = 0;
    std::deque<Asked> dialogs_;
    std::vector<Viewed> screens_;
    std::set<std::string> names_;  // of all screens that were ever open
    std::map<std::string, std::map<std::string, COtxValue>> early_;  // changes that came ahead of the opening
    bool isCancelled_ = false;
    bool isAtPrompt_ = false;
};

}  // namespace velkotx::host
