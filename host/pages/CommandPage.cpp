// Reads the table of options.
#include "pages/CommandPage.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <utility>

namespace velkotx::host {

namespace {

std::vector<std::string> alternatives(const std::string& placeholder) {
    std::vector<std::string> words(1);
    for (const char letter : placeholder) {
        if (letter == '|')
            words.emplace_back();
        else
            words.back() += letter;
    }
    return words;
}

// The placeholders are the convention: FILE and OUT name files, DIR a folder, a|b is a choice.
ArgumentKind kindOf(const CLI::Option& option) {
    if (option.get_items_expected_max() == 0)
        return ArgumentKind::none;
    const std::string placeholder = option.get_type_name();
    if (placeholder == "FILE" || placeholder == "OUT")
        return ArgumentKind::file;
    if (placeholder == "DIR")
        return ArgumentKind::folder;
    return placeholder.find('|') == std::string::npos ? ArgumentKind::text : ArgumentKind::choice;
}

OptionPage describeOption(const CLI::Option& option) {
    OptionPage page;
    for (const std::string& name : option.get_snames())
        page.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        page.names.push_back("--" + name);
    page.argument = kindOf(option);
    if (page.argument != ArgumentKind::none)
        page.placeholder = option.get_type_name();
    if (page.argument == ArgumentKind::choice)
        page.choices = alternatives(page.placeholder);
    page.help = option.get_description();
    page.isRequired = option.get_required();
    page.isRepeatable = option.get_expected_max() > 1;
    return page;
}

PositionalPage describePositional(const CLI::Option& option) {
    const std::string name = option.get_name(true);
    return {name, option.get_description(), option.get_required(), name == "FILE"};
}

CommandPage describeBelow(const CLI::App& command, std::vector<std::string> path) {
    CommandPage page;
    path.push_back(command.get_name());
    page.path = std::move(path);
    page.help = command.get_description();
    page.footer = command.get_footer();
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional())
            page.positionals.push_back(describePositional(*option));
        else
            page.options.push_back(describeOption(*option));
    }
    for (const CLI::App* below : command.get_subcommands([](const CLI::App*) { return true; }))
        page.commands.push_back(describeBelow(*below, page.path));
    return page;
}

void append(const CommandPage& page, std::vector<const CommandPage*>& pages) {
    pages.push_back(&page);
    for (const CommandPage& below : page.commands)
        append(below, pages);
}

}  // namespace

CommandPage describe(const CLI::App& command) {
    return describeBelow(command, {});
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

std::vector<const CommandPage*> allPages(const CommandPage& page) {
    std::vector<const CommandPage*> pages;
    append(page, pages);
    return pages;
}

}  // namespace velkotx::host
