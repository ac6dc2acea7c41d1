// Runs the test documents below a folder and compares what happens with their expectations.
#include "Difference.h"
#include "DocumentRun.h"
#include "ExpectFile.h"
#include "LaneForm.h"
#include "Loading.h"
#include "Locale.h"
#include "Options.h"
#include "Watch.h"
#include "Zone.h"

#include <fnmatch.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace documents;
namespace fs = std::filesystem;

constexpr int exitNotAvailable = 77;

enum class Verdict { passed, failed, skipped };

// The names of all documents and expectations below the root that match the filter. One without the other is named as well,
// or it would never be noticed.
std::set<std::string> namesIn(const Options& options) {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(options.root)) {
        if (entry.path().extension() != ".otx" && entry.path().extension() != ".expect") continue;
        std::string name = fs::relative(entry.path(), options.root).replace_extension().generic_string();
        if (fnmatch(options.filter.c_str(), name.c_str(), 0) == 0) names.insert(std::move(name));
    }
    return names;
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

void print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

bool mustBeRefused(const std::string& name) { return fs::path(name).filename().string().starts_with("bad-"); }

Verdict skip(const std::string& name, const std::string& reason) {
    print("skipped " + name + ": " + reason + "\n");
    return Verdict::skipped;
}

// The document as the mode wants it; the reason, if there is no such form.
struct Form {
    std::string text;
    std::string missing;
};

Form formOf(const std::string& name, const ExpectFile& expectation, const Options& options) {
    const Script& script = expectation.script();
    std::string text = contentOf(expectation.document());
    if (options.mode != Mode::lane) return {std::move(text), ""};
    if (mustBeRefused(name)) return {"", "is refused before a lane could run"};
    if (!script.stopKeys.empty()) return {"", "the parallel node would be a stop too"};
    std::set<std::string> procedures;
    for (const Step& step : script.steps) procedures.insert(step.procedure);
    if (auto inside = insideLanes(text, procedures)) return {std::move(*inside), ""};
    return {"", "has no flow that a lane could run"};
}

// What ends a run in words ends it as cancelled from inside a lane; the words stand in the trace only.
std::vector<std::string> expectedIn(Mode mode, std::vector<std::string> transcript, const std::vector<std::string>& actual) {
    const std::string cancelled = R"({"outcome":"cancelled","what":"cancelled","text":""})";
    if (mode != Mode::lane || transcript.size() != actual.size()) return transcript;
    for (std::size_t line = 0; line < transcript.size(); ++line)
        if (transcript[line].starts_with(R"({"outcome":"failed")") && actual[line] == cancelled) transcript[line] = cancelled;
    return transcript;
}

Verdict check(const std::string& name, const Options& options) {
    const ExpectFile expectation(options.root / (name + ".expect"));
    const auto& skipped = expectation.script().skipped;
    if (const auto found = skipped.find(options.mode); found != skipped.end()) return skip(name, found->second);
    const Form form = formOf(name, expectation, options);
    if (!form.missing.empty()) return skip(name, form.missing);
    if (options.verbose) print("running " + name + "\n");
    installZone(expectation.script().zone);
    const auto actual = runDocument(form.text, expectation.script(), options.mode);
    const bool refused = !actual.empty() && actual.back().starts_with(R"({"outcome":"unloadable")");
    if (refused != mustBeRefused(name)) {
        print("FAILED " + name + (refused ? ": could not be loaded\n" : ": should have been refused\n") +
              (refused ? actual.back() + "\n" : ""));
        return Verdict::failed;
    }
    const std::string changes = difference(expectedIn(options.mode, expectation.transcript(), actual), actual);
    if (changes.empty()) return Verdict::passed;
    if (options.rebase) {
        expectation.rewrite(actual);
        print("rebased " + name + "\n" + changes);
        return Verdict::passed;
    }
    print("FAILED " + name + "\n--- expected\n+++ actual\n" + changes);
    return Verdict::failed;
}

Verdict checkGuarded(const std::string& name, const Options& options) {
    try {
        return check(name, options);
    } catch (const std::exception& failure) {
        print("FAILED " + name + ": " + failure.what() + "\n");
        return Verdict::failed;
    }
}

int runAll(const Options& options) {
    std::size_t passed = 0;
    std::size_t skipped = 0;
    std::vector<std::string> failed;
    watchForCrashes();
    for (const std::string& name : namesIn(options)) {
        nowRunning(name);
        const Verdict verdict = checkGuarded(name, options);
        nowRunning("");
        if (verdict == Verdict::passed) ++passed;
        if (verdict == Verdict::skipped) ++skipped;
        if (verdict == Verdict::failed) failed.push_back(name);
    }
    if (passed == 0 && failed.empty()) failed.push_back("(no document ran)");
    for (const std::string& name : failed) print("failed: " + name + "\n");
    print(std::string(nameOf(options.mode)) + ": " + std::to_string(passed) + " passed, " + std::to_string(failed.size()) +
          " failed, " + std::to_string(skipped) + " skipped\n");
    return failed.empty() ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    try {
        const Options options = readOptions(argumentCount, arguments);
        if (options.mode == Mode::compiled) {
            if (const auto reason = compiledFormMissing()) {
                print("the mode compiled is not available yet: " + *reason + "\n");
                return exitNotAvailable;
            }
        }
        if (options.commaLocale) installCommaLocale();
        return runAll(options);
    } catch (const std::invalid_argument& usage) {
        std::fprintf(stderr, "otx_documents: %s\n", usage.what());
        return 2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "otx_documents: %s\n", failure.what());
        return 1;
    }
}
