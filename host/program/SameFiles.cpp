// One file named for two things.
#include "program/SameFiles.h"

#include "program/Options.h"
#include "program/UsageError.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace velkotx::host {

namespace {

namespace fs = std::filesystem;

struct Named {
    const char* option;
    std::string file;
};

bool isMeant(const std::string& file) {
    if (file.empty() || file == "-")
        return false;
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    return !fs::exists(status) || fs::is_regular_file(status);
}

bool areSame(const std::string& one, const std::string& other) {
    std::error_code failure;
    if (fs::equivalent(one, other, failure))
        return true;
    // Those that aren't there yet.
    const auto placeOf = [&](const std::string& file) { return fs::weakly_canonical(fs::absolute(file, failure), failure); };
    return placeOf(one) == placeOf(other) && !failure;
}

void refuse(const std::vector<Named>& written, const std::vector<Named>& read) {
    for (auto one = written.begin(); one != written.end(); ++one) {
        if (!isMeant(one->file))
            continue;
        std::vector<Named> others(one + 1, written.end());
        others.insert(others.end(), read.begin(), read.end());
        for (const Named& other : others)
            if (isMeant(other.file) && areSame(one->file, other.file))
                throw UsageError(std::string(one->option) + " and " + other.option + ": one file can't be both, " + one->file);
    }
}

std::vector<Named> writtenBy(const SetUpOptions& options) {
    return {{"--messages", options.messagesFile}, {"--persist", options.persistenceFile}, {"--log-file", options.log.file}};
}

std::vector<Named> readBy(const SetUpOptions& options) {
    return {{"the document", options.document},
            {"--args", options.argumentsFile},
            {"--context", options.contextFile},
            {"--translations", options.translationsFile},
            {"--vehicle", options.vehicleFile}};
}

}  // namespace

void refuseSameFiles(const SetUpOptions& options) {
    refuse(writtenBy(options), readBy(options));
}

void refuseSameFiles(const RunOptions& options) {
    std::vector<Named> read = readBy(options);
    read.push_back({"--control", options.controlFile});
    read.push_back({"--answers", options.answersFile});
    refuse(writtenBy(options), read);
}

}  // namespace velkotx::host
