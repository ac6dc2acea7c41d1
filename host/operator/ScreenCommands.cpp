// An operator at a terminal: the commands for screens.
#include "operator/Conversation.h"

#include "operator/RunPort.h"
#include "operator/TypedText.h"
#include "operator/TypedValue.h"
#include "text/OneLine.h"

#include <algorithm>

namespace velkotx::host {

namespace {

const std::vector<std::string> help{
    "set NAME VALUE   set a parameter that the screen gives out; VALUE is of the kind that the screen shows there:",
    "                 a text, 117, 2.5, TRUE or FALSE, 0A1B (bytes), 12.5 V (in V: or 12.5), YES (a name), or JSON;",
    "                 where it shows none: TRUE or FALSE, JSON, else a text; \"117\" and \"TRUE\" are texts",
    "close            close the screen",
    "show             show the screen again",
    "screen NAME      turn to another screen",
    "screens          list the open screens",
    "Ctrl-C           cancel the run",
};

struct Words {
    std::string first;
    std::string rest;
};

Words split(const std::string& text, const char* ends) {
    const std::size_t end = text.find_first_of(ends);
    if (end == std::string::npos)
        return {text, {}};
    return {text.substr(0, end), withoutBlanksAround(text.substr(end + 1))};
}

// A name with blanks in it stands in quotes.
Words splitName(const std::string& text) {
    const std::size_t end = text.starts_with('"') ? text.find('"', 1) : std::string::npos;
    if (end == std::string::npos)
        return split(text, " \t=");
    const std::string rest = withoutBlanksAround(text.substr(end + 1));
    return {text.substr(1, end - 1), rest.starts_with('=') ? withoutBlanksAround(rest.substr(1)) : rest};
}

}  // namespace

void Conversation::obeyForScreen(const std::string& line) {
    const auto [word, rest] = split(withoutBlanksAround(line), " \t");
    if (word.empty() || word == "show") {
        current().shown = Viewed::Shown::not_yet;
    } else if (word == "set") {
        setParameter(rest);
    } else if (word == "close" && rest.empty()) {
        closeScreen();
    } else if (word == "screen" && find(rest) != nullptr) {
        turnTo(rest);
    } else if (word == "screens" || (word == "screen" && rest.empty())) {
        listScreens();
    } else if (word == "screen") {
        say("no screen " + oneLine(rest) + " is open:");
        listScreens();
    } else {
        if (word != "help")
            say("unknown command: " + oneLine(line));
        say(help);
    }
}

void Conversation::listScreens() {
    for (const Viewed& viewed : screens_)
        say((&viewed == &current() ? "* " : "  ") + oneLine(viewed.view.name()));
}

void Conversation::setParameter(const std::string& nameAndValue) {
    const auto [name, text] = splitName(nameAndValue);
    if (name.empty())
        return say("set NAME VALUE");
    ScreenView& view = current().view;
    try {
        const COtxValue value = valueLike(view.examples(name), text.starts_with("= ") ? text.substr(2) : text);
        const auto refusal = port_.sendEvent(outValuesChanged(view.name(), {{name, value}}));
        sayRefusal(refusal);
        if (!refusal)
            view.set(name, value);  // nobody tells it back for a mere out parameter
    } catch (const TypingError& error) {
        say(oneLine(name) + ": " + error.what());
    }
}

void Conversation::closeScreen() {
    const std::string name = current().view.name();
    screens_.pop_back();
    sayRefusal(port_.sendEvent(screenClosed(name)));
}

void Conversation::turnTo(const std::string& screen) {
    const auto found =
        std::ranges::find_if(screens_, [&](const Viewed& viewed) { return viewed.view.name() == screen; });
    found->shown = Viewed::Shown::not_yet;
    std::rotate(found, found + 1, screens_.end());
}

}  // namespace velkotx::host
