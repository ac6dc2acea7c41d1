// The command line of the runner.
#include "Options.h"

#include <stdexcept>
#include <vector>

namespace documents {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw std::invalid_argument(
        reason + "\nusage: otx_documents [--mode xml|compiled|stepped|lane] [--comma-locale] [--rebase] [--verbose] "
                 "[--filter GLOB] ROOT");
}

}  // namespace

Options readOptions(int argumentCount, const char* const* arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    Options options;
    for (auto word = words.begin(); word != words.end(); ++word) {
        const auto next = [&]() -> const std::string& {
            if (word + 1 == words.end()) refuse(*word + " needs a value");
            return *++word;
        };
        if (*word == "--mode") {
            const std::string& name = next();
            const auto mode = modeNamed(name);
            if (!mode) refuse("no such mode: " + name);
            options.mode = *mode;
        } else if (*word == "--filter") {
            options.filter = next();
        } else if (*word == "--rebase") {
            options.rebase = true;
        } else if (*word == "--verbose") {
            options.verbose = true;
        } else if (*word == "--comma-locale") {
            options.commaLocale = true;
        } else if (word->starts_with("--")) {
            refuse("no such option: " + *word);
        } else if (options.root.empty()) {
            options.root = *word;
        } else {
            refuse("one folder only: " + *word);
        }
    }
    if (options.root.empty()) refuse("which folder?");
    if (!std::filesystem::is_directory(options.root)) refuse("no folder: " + options.root.string());
    return options;
}

}  // namespace documents
