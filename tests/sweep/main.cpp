// otx_sweep: reads compiled documents back in every truncation and with every single byte changed.
#include "Cases.h"
#include "Check.h"
#include "Shards.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int exitFailed = 1;
constexpr int exitUsage = 2;

struct Command {
    sweep::Plan plan;
    std::vector<std::string> files;
};

// A folder stands for the OTX documents in it.
void addFiles(std::vector<std::string>& files, const std::string& path) {
    if (!std::filesystem::is_directory(path)) {
        files.push_back(path);
        return;
    }
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        if (entry.path().extension() == ".otx") found.push_back(entry.path().string());
    std::sort(found.begin(), found.end());
    files.insert(files.end(), found.begin(), found.end());
}

bool readCount(std::string_view text, std::size_t& value) {
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end && value != 0;
}

std::optional<Command> readArguments(const std::vector<std::string>& arguments) {
    Command command;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::size_t* const count = arguments[i] == "--every"       ? &command.plan.every
                                   : arguments[i] == "--processes" ? &command.plan.processes
                                                                   : nullptr;
        if (count == nullptr)
            addFiles(command.files, arguments[i]);
        else if (++i == arguments.size() || !readCount(arguments[i], *count))
            return std::nullopt;
    }
    if (command.files.empty()) return std::nullopt;
    return command;
}

// True if every case went as it must.
bool sweepOne(const std::string& path, const sweep::Plan& plan) try {
    const std::vector<char> bytes = sweep::compiledForm(path);
    const sweep::Judgement whole = sweep::check(bytes);
    if (!whole.loaded || !whole.failure.empty()) {
        std::fprintf(stderr, "%s: whole as it is: %s\n", path.c_str(),
                     whole.failure.empty() ? "refused" : whole.failure.c_str());
        return false;
    }
    const sweep::Totals totals = sweep::sweepFile(path, sweep::Cases(bytes), plan);
    std::printf("%s: %zu bytes, %zu cases, %zu loaded, %zu refused, %zu failed, largest allocation %zu\n", path.c_str(),
                bytes.size(), totals.cases, totals.loaded, totals.refused, totals.failed, totals.largestAllocation);
    std::fflush(stdout);
    return totals.failed == 0 && totals.cases != 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), failure.what());
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    const auto command = readArguments({argv + 1, argv + argc});
    if (!command) {
        std::fprintf(stderr, "usage: otx_sweep [--every N] [--processes N] FILE.otx|FILE.compiled|FOLDER...\n");
        return exitUsage;
    }
    bool passed = true;
    for (const std::string& path : command->files) passed = sweepOne(path, command->plan) && passed;
    return passed ? EXIT_SUCCESS : exitFailed;
}
