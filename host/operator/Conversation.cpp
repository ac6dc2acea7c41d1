// An operator at a terminal: what is shown and asked.
#include "operator/Conversation.h"

#include "operator/RunPort.h"
#include "text/OneLine.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace velkotx::host {

void Conversation::take(const ScreenNews& news) {
    switch (news.kind) {
        case ScreenNews::Kind::opened: return open(news);
        case ScreenNews::Kind::changed: return change(news);
        case ScreenNews::Kind::highlighted: return highlight(news.screen);
        case ScreenNews::Kind::closed:
            return close(news.screen, isCancelled_ ? "is gone: the run was cancelled" : "is gone: the run has closed it");
        case ScreenNews::Kind::settled: return close(news.screen, "is gone: it was answered elsewhere");
        case ScreenNews::Kind::cancelled: isCancelled_ = true; return;
        case ScreenNews::Kind::waiting: return;  // there is somebody
    }
}

void Conversation::open(const ScreenNews& news) {
    std::unique_ptr<Dialog> dialog = makeDialog(news);
    const auto asked = findDialog(news.screen);
    Viewed* const viewed = find(news.screen);
    if (asked != dialogs_.end() || viewed != nullptr) {
        say("-- another " + oneLine(news.screen) + " ends with the one that is open:");
        say(dialog != nullptr ? dialog->lines() : ScreenView(news).lines());
        // What is asked is the open one, so it stands last.
        if (asked != dialogs_.end())
            asked->isStale = true;
        else
            viewed->shown = Viewed::Shown::not_yet;
    } else if (dialog != nullptr) {
        dialogs_.push_back({++count_, std::move(dialog)});
    } else {
        openScreen(news);
    }
}

void Conversation::openScreen(const ScreenNews& news) {
    Viewed& opened = screens_.emplace_back(Viewed{++count_, ScreenView(news)});
    names_.insert(news.screen);
    if (const auto early = early_.extract(news.screen))
        opened.view.change(early.mapped());
}

void Conversation::change(const ScreenNews& news) {
    if (Viewed* const viewed = find(news.screen)) {
        viewed->view.change(news.parameters);
        if (viewed->shown == Viewed::Shown::current)
            viewed->shown = Viewed::Shown::stale;
        return;
    }
    // Of a screen that was closed, it was on its way; of one that never was open, it came ahead of the opening.
    if (names_.contains(news.screen))
        return;
    for (const auto& [parameter, value] : news.parameters)
        early_[news.screen].insert_or_assign(parameter, value);
}

void Conversation::highlight(const std::string& screen) {
    if (find(screen) == nullptr)
        return;
    turnTo(screen);
    say("-- look at " + oneLine(screen) + ":");
}

void Conversation::close(const std::string& screen, const std::string& why) {
    early_.erase(screen);
    const auto asked = findDialog(screen);
    if (asked != dialogs_.end()) {
        if (asked->isShown)
            say("-- " + oneLine(screen) + ' ' + why);
        dialogs_.erase(asked);
    } else if (find(screen) != nullptr) {
        say("-- " + oneLine(screen) + ' ' + why);
        std::erase_if(screens_, [&](const Viewed& viewed) { return viewed.view.name() == screen; });
    }
}

void Conversation::settle(const std::string& typed) {
    dropGone();
    for (Viewed& viewed : screens_) {
        if (viewed.shown != Viewed::Shown::not_yet)
            continue;
        say(viewed.view.lines());
        if (viewed.view.opening().modal)
            say("The run waits until it is closed.");
        viewed.shown = Viewed::Shown::current;
    }
    if (!dialogs_.empty() && (!dialogs_.front().isShown || dialogs_.front().isStale)) {
        say(dialogs_.front().dialog->lines());
        dialogs_.front().isShown = true;
        dialogs_.front().isStale = false;
    }
    if (isAtPrompt_ || asks() == 0)
        return;
    terminal_ << (dialogs_.empty() ? oneLine(current().view.name()) + "> " : dialogs_.front().dialog->prompt())
              << typed << std::flush;
    isAtPrompt_ = true;
}

// What is about to be shown for the first time.
void Conversation::dropGone() {
    std::erase_if(screens_, [&](const Viewed& viewed) {
        return viewed.shown == Viewed::Shown::not_yet && !port_.isOpen(viewed.view.name());
    });
    while (!dialogs_.empty() && !dialogs_.front().isShown && !port_.isOpen(dialogs_.front().dialog->name()))
        dialogs_.pop_front();
}

void Conversation::finish() {
    const auto open = openScreens();
    for (const ScreenNews& each : open)
        close(each.screen, isCancelled_ ? "is gone: the run was cancelled" : "is gone: the run is over");
    if (isAtPrompt_)
        terminal_ << '\n' << std::flush;
    isAtPrompt_ = false;
}

std::size_t Conversation::asks() const {
    if (!dialogs_.empty())
        return dialogs_.front().number;
    return screens_.empty() ? 0 : screens_.back().number;
}

void Conversation::obey(const std::string& line) {
    isAtPrompt_ = false;
    if (dialogs_.empty()) {
        if (!screens_.empty())
            obeyForScreen(line);
        return;
    }
    const Dialog::Answer answer = dialogs_.front().dialog->read(line);
    if (answer.complaint.empty())
        conclude(answer.result);
    else
        say(answer.complaint);
}

void Conversation::drop() {
    say("-- what was typed is dropped, it was for something else");
}

void Conversation::closeWithoutAnswer() {
    if (dialogs_.empty())
        return say("close closes the screen, Ctrl-C cancels the run");
    say("-- closed without an answer");
    conclude({});
}

void Conversation::conclude(const std::optional<COtxValue>& result) {
    const std::unique_ptr<Dialog> dialog = std::move(dialogs_.front().dialog);
    dialogs_.pop_front();
    if (result) {
        const auto refusal = port_.sendEvent(outValuesChanged(dialog->name(), {{"result", *result}}));
        if (!dialog->mayGoUnheard() || refusal != "Unknown variable: result")
            sayRefusal(refusal);
    }
    sayRefusal(port_.sendEvent(screenClosed(dialog->name())));
}

bool Conversation::isStale() const {
    return std::ranges::any_of(screens_, [](const Viewed& viewed) { return viewed.shown == Viewed::Shown::stale; });
}

void Conversation::refresh() {
    for (Viewed& viewed : screens_) {
        if (viewed.shown != Viewed::Shown::stale)
            continue;
        say(viewed.view.lines());
        viewed.shown = Viewed::Shown::current;
    }
}

std::vector<ScreenNews> Conversation::openScreens() const {
    std::vector<ScreenNews> open;
    for (const Asked& asked : dialogs_)
        open.push_back(asked.dialog->opening());
    for (const Viewed& viewed : screens_)
        open.push_back(viewed.view.opening());
    return open;
}

std::deque<Conversation::Asked>::iterator Conversation::findDialog(const std::string& screen) {
    return std::ranges::find_if(dialogs_, [&](const Asked& asked) { return asked.dialog->name() == screen; });
}

Conversation::Viewed* Conversation::find(const std::string& screen) {
    const auto found =
        std::ranges::find_if(screens_, [&](const Viewed& viewed) { return viewed.view.name() == screen; });
    return found != screens_.end() ? &*found : nullptr;
}

// What comes unasked stands below the prompt, and below what may be typed there.
void Conversation::say(const std::string& line) {
    if (isAtPrompt_)
        terminal_ << '\n';
    isAtPrompt_ = false;
    terminal_ << line + '\n' << std::flush;
}

void Conversation::say(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    say(text);
}

void Conversation::sayRefusal(const std::optional<std::string>& refusal) {
    if (refusal)
        say("-- the run refuses it: " + oneLine(*refusal));
}

}  // namespace velkotx::host
