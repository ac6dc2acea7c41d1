// What a page tells of a command: plain data, read from the table of options.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace velkotx::host {

// What stands behind an option, which decides how a shell completes it.
enum class ArgumentKind { none, text, file, folder, choice };

struct OptionPage {
    std::vector<std::string> names;  // with their dashes, the short ones first
    ArgumentKind argument = ArgumentKind::none;
    std::string placeholder;  // as the help shows it
    std::vector<std::string> choices;
    std::string help;
    bool isRequired = false;
    bool isRepeatable = false;
};

struct PositionalPage {
    std::string name;
    std::string help;
    bool isRequired = false;
    bool isFile = false;
};

struct CommandPage {
    std::vector<std::string> path;  // "velkotx", "vehicle", "check"
    std::string help;
    std::string footer;
    std::vector<OptionPage> options;
    std::vector<PositionalPage> positionals;
    std::vector<CommandPage> commands;
};

// The page of a parser and, in it, those of its commands.
CommandPage describe(const CLI::App& command);

// The words of a path with something between them.
std::string joined(const std::vector<std::string>& words, const std::string& between);

// The page itself and all pages below it, in the order of the table.
std::vector<const CommandPage*> allPages(const CommandPage& page);

}  // namespace velkotx::host
