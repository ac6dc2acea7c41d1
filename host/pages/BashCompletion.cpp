// The completion for bash.
#include "pages/CommandPage.h"
#include "pages/Writers.h"

#include <ostream>

namespace velkotx::host {

namespace {

std::string quoted(const std::string& text) {
    return "'" + text + "'";
}

// What completes the word behind an option.
std::string answer(const OptionPage& option) {
    switch (option.argument) {
        case ArgumentKind::file: return "_velkotx_files";
        case ArgumentKind::folder: return "_velkotx_folders";
        case ArgumentKind::choice: return "_velkotx_words " + quoted(joined(option.choices, " "));
        default: return ":";
    }
}

std::string allNames(const CommandPage& page) {
    std::vector<std::string> names;
    for (const OptionPage& option : page.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return joined(names, " ");
}

std::string behindCommand(const CommandPage& page) {
    if (!page.commands.empty()) {
        std::vector<std::string> names;
        for (const CommandPage& below : page.commands)
            names.push_back(below.path.back());
        return "_velkotx_words " + quoted(joined(names, " "));
    }
    for (const PositionalPage& positional : page.positionals)
        if (positional.isFile)
            return "_velkotx_files";
    return ":";
}

constexpr const char* helpers =
    "_velkotx_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$word\"); }\n"
    "_velkotx_files() { compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$word\"); }\n"
    "_velkotx_folders() { compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$word\"); }\n\n";

}  // namespace

void writeBashCompletion(const CommandPage& program, std::ostream& out) {
    const auto pages = allPages(program);
    out << "# Completion of velkotx for bash.\n\n" << helpers;
    out << "_velkotx() {\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=velkotx i\n"
           "    COMPREPLY=()\n"
           "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
           "        case \"$command ${COMP_WORDS[i]}\" in\n           ";
    for (std::size_t index = 1; index < pages.size(); ++index)
        out << (index == 1 ? " " : "|") << quoted(joined(pages[index]->path, " "));
    out << ") command+=\" ${COMP_WORDS[i]}\" ;;\n"
           "        esac\n"
           "    done\n"
           "    case \"$command $before\" in\n";
    for (const CommandPage* page : pages)
        for (const OptionPage& option : page->options)
            if (option.argument != ArgumentKind::none)
                for (const std::string& name : option.names)
                    out << "        " << quoted(joined(page->path, " ") + " " + name) << ") " << answer(option)
                        << "; return ;;\n";
    out << "    esac\n"
           "    case \"$command:$word\" in\n";
    for (const CommandPage* page : pages)
        out << "        " << quoted(joined(page->path, " ") + ":-") << "*) _velkotx_words " << quoted(allNames(*page))
            << " ;;\n        " << quoted(joined(page->path, " ") + ":") << "*) " << behindCommand(*page) << " ;;\n";
    out << "    esac\n"
           "}\n\n"
           "complete -F _velkotx velkotx\n";
}

}  // namespace velkotx::host
