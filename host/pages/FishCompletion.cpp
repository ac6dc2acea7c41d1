// The completion for fish.
#include "pages/CommandPage.h"
#include "pages/Writers.h"

#include <ostream>

namespace velkotx::host {

namespace {

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char letter : text) {
        if (letter == '\'' || letter == '\\')
            result += '\\';
        result += letter;
    }
    return result + "'";
}

// Whether the words so far lead to this command and to none below it.
std::string condition(const CommandPage& page) {
    std::string text;
    for (std::size_t index = 1; index < page.path.size(); ++index)
        text += "__fish_seen_subcommand_from " + page.path[index] + "; and ";
    std::vector<std::string> below;
    for (const CommandPage& command : page.commands)
        below.push_back(command.path.back());
    if (below.empty())
        return text.substr(0, text.size() - std::string("; and ").size());
    return text + "not __fish_seen_subcommand_from " + joined(below, " ");
}

std::string answer(const OptionPage& option) {
    switch (option.argument) {
        case ArgumentKind::none: return "";
        case ArgumentKind::file: return " -r -F";
        case ArgumentKind::folder: return " -x -a '(__fish_complete_directories)'";
        case ArgumentKind::choice: return " -x -a " + quoted(joined(option.choices, " "));
        case ArgumentKind::text: break;
    }
    return " -x";
}

void writeOption(const OptionPage& option, const std::string& begin, std::ostream& out) {
    out << begin;
    for (const std::string& name : option.names)
        out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
    out << answer(option) << " -d " << quoted(option.help) << '\n';
}

void writeCommand(const CommandPage& page, std::ostream& out) {
    const std::string begin = "complete -c velkotx -n " + quoted(condition(page));
    for (const CommandPage& below : page.commands)
        out << begin << " -f -a " << below.path.back() << " -d " << quoted(below.help) << '\n';
    for (const OptionPage& option : page.options)
        writeOption(option, begin, out);
}

}  // namespace

void writeFishCompletion(const CommandPage& program, std::ostream& out) {
    out << "# Completion of velkotx for fish.\n\n";
    for (const CommandPage* page : allPages(program))
        writeCommand(*page, out);
}

}  // namespace velkotx::host
