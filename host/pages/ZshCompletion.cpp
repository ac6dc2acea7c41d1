// The completion for zsh.
#include "pages/CommandPage.h"
#include "pages/Writers.h"

#include <ostream>

namespace velkotx::host {

namespace {

// Text within single quotes and brackets or behind a colon, as _arguments reads it.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\'')
            result += "'\\''";
        else if (letter == '[' || letter == ']' || letter == ':' || letter == '\\')
            result += std::string("\\") + letter;
        else
            result += letter;
    }
    return result;
}

std::string answer(const OptionPage& option) {
    switch (option.argument) {
        case ArgumentKind::none: return "";
        case ArgumentKind::file: return ":" + escaped(option.placeholder) + ":_files";
        case ArgumentKind::folder: return ":" + escaped(option.placeholder) + ":_files -/";
        case ArgumentKind::choice: return ":" + escaped(option.placeholder) + ":(" + joined(option.choices, " ") + ")";
        case ArgumentKind::text: break;
    }
    return ":" + escaped(option.placeholder) + ":";
}

std::string functionName(const CommandPage& page) {
    return "_" + joined(page.path, "_");
}

void writeArguments(const CommandPage& page, std::ostream& out) {
    for (const OptionPage& option : page.options)
        for (const std::string& name : option.names)
            out << " \\\n        '" << (option.isRepeatable ? "*" : "") << name << '[' << escaped(option.help) << ']'
                << answer(option) << '\'';
    for (const PositionalPage& positional : page.positionals)
        out << " \\\n        '" << (positional.isRequired ? ":" : "::") << escaped(positional.name) << ':'
            << (positional.isFile ? "_files" : "") << '\'';
}

// A command with commands below it hands the rest of the words to theirs.
void writeCommands(const CommandPage& page, std::ostream& out) {
    out << " \\\n        ':command:->command' \\\n        '*::argument:->argument'\n"
        << "    case $state in\n"
        << "        command)\n"
        << "            commands=(\n";
    for (const CommandPage& below : page.commands)
        out << "                '" << below.path.back() << ':' << escaped(below.help) << "'\n";
    out << "            )\n"
        << "            _describe command commands ;;\n"
        << "        argument)\n"
        << "            case $words[1] in\n";
    for (const CommandPage& below : page.commands)
        out << "                " << below.path.back() << ") " << functionName(below) << " ;;\n";
    out << "            esac ;;\n"
        << "    esac\n";
}

void writeFunction(const CommandPage& page, std::ostream& out) {
    out << functionName(page) << "() {\n";
    if (!page.commands.empty())
        out << "    local context state state_descr line\n    local -A opt_args\n    local -a commands\n";
    out << "    _arguments -C";
    writeArguments(page, out);
    if (page.commands.empty())
        out << '\n';
    else
        writeCommands(page, out);
    out << "}\n\n";
}

}  // namespace

void writeZshCompletion(const CommandPage& program, std::ostream& out) {
    out << "#compdef velkotx\n# Completion of velkotx for zsh.\n\n";
    for (const CommandPage* page : allPages(program))
        writeFunction(*page, out);
    out << "if [ \"$funcstack[1]\" = _velkotx ]; then _velkotx \"$@\"; else compdef _velkotx velkotx; fi\n";
}

}  // namespace velkotx::host
