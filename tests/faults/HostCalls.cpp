// otx_host_faults: runs the test documents that reach for host objects, once for each of their calls, which throws.
#include "DocumentRun.h"
#include "ExpectFile.h"
#include "Watch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace documents;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::map<std::string, HostFailure> kinds{{"otx", {HostFailure::Kind::exception, 2, "refused"}},
                                               {"standard", {HostFailure::Kind::standard, 0, "refused"}},
                                               {"integer", {HostFailure::Kind::integer, 0, ""}}};

struct Totals {
    int documents = 0;
    int faults = 0;
    int mistakes = 0;
};

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can't read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

bool isCall(const std::string& line) { return line.find("call ") <= line.find_first_not_of(' '); }

bool isOutcome(const std::string& line) { return line.starts_with(R"({"outcome":)"); }

bool isFinished(const std::string& outcome) { return outcome.starts_with(R"({"outcome":"finished")"); }

// What the kind may make of a run. Only the host's own number leaves it as no standard exception.
bool isStated(const std::string& outcome, const std::string& kind) {
    for (const char* const known : {"finished", "exception", "failed", "cancelled"})
        if (outcome.starts_with(std::string(R"({"outcome":")") + known + '"')) return true;
    return kind == "integer" && outcome.starts_with(R"({"outcome":"escaped","what":"no std::exception")");
}

// The calls behind which a run goes on as if nothing were.
struct Swallowing {
    const char* operation;
    const char* node;  // of the document
    const char* reason;
};
constexpr Swallowing swallowing[] = {
    {"FileStore.Open", ":IsFile\"", "every failure of the store is a no"},
};

// What a handler can take: OTX exceptions, and what the node itself makes one of.
bool isForHandlers(const std::string& operation, const std::string& kind) {
    const bool isMadeOne = operation == "Store.Save" || operation.starts_with("FileStore.");
    return kind == "otx" || (kind == "standard" && isMadeOne);
}

// "OBJECT.OPERATION", the object's name only where there is one of the kind.
std::string operationIn(const std::string& call) {
    const std::string named = call.substr(0, call.find('('));
    for (const char* const object : {"FileStore.", "Store."})
        if (const auto at = named.find(std::string("call ") + object); at != std::string::npos) return named.substr(at + 5);
    return named.substr(named.rfind('.') + 1);
}

class Check {
public:
    Check(std::string name, const ExpectFile& expectation, Totals& totals)
        : name_(std::move(name)),
          document_(contentOf(expectation.document())),
          script_(expectation.script()),
          totals_(totals),
          whole_(runDocument(document_, script_, Mode::xml)) {}

    void run() {
        const auto calls = std::count_if(whole_.begin(), whole_.end(), isCall);
        if (calls == 0) return;
        ++totals_.documents;
        for (const auto& [kind, failure] : kinds)
            for (int call = 1; call <= calls; ++call) fault(kind, failure, call);
    }

private:
    void fault(const std::string& kind, const HostFailure& failure, int call) {
        const std::string place = name_ + ", call " + std::to_string(call) + " throws " + kind;
        nowRunning(place);
        ++totals_.faults;
        Script script = script_;
        script.failures = {{call, failure}};
        const Lines lines = runDocument(document_, script, Mode::xml);
        const auto outcomes = std::count_if(lines.begin(), lines.end(), isOutcome);
        if (outcomes != std::count_if(whole_.begin(), whole_.end(), isOutcome)) tell(place, "another number of outcomes");
        for (const std::string& line : lines)
            if (isOutcome(line) && !isStated(line, kind)) tell(place, line);
        checkRunOf(call, lines, kind, place);
        if (runDocument(document_, script_, Mode::xml) != whole_) tell(place, "the next time is another one");
        nowRunning("");
    }

    // The run whose call failed mustn't finish as if nothing were.
    void checkRunOf(int call, const Lines& lines, const std::string& kind, const std::string& place) {
        auto line = lines.begin();
        for (auto expected = whole_.begin(); line != lines.end() && (!isCall(*line) || --call != 0); ++line) {
            if (!isOutcome(*line)) continue;
            expected = std::find_if(expected, whole_.end(), isOutcome);
            if (expected == whole_.end() || *line != *expected++) tell(place, "a run ahead of it gives " + *line);
        }
        if (line == lines.end()) return tell(place, "the call isn't made");
        const auto outcome = std::find_if(line, lines.end(), isOutcome);
        if (outcome != lines.end() && isFinished(*outcome) && !mayFinish(operationIn(*line), kind))
            tell(place, operationIn(*line) + ": the run finishes");
    }

    bool mayFinish(const std::string& operation, const std::string& kind) const {
        const auto holds = [this](const char* name) { return document_.find(name) != std::string::npos; };
        for (const Swallowing& known : swallowing)
            if (operation == known.operation && holds(known.node) && kind != "integer") return true;
        return holds("<handler") && isForHandlers(operation, kind);
    }

    void tell(const std::string& place, const std::string& mistake) {
        ++totals_.mistakes;
        std::printf("%s: %s\n", place.c_str(), mistake.c_str());
    }

    const std::string name_;
    const std::string document_;
    const Script script_;
    Totals& totals_;
    const Lines whole_;
};

// Not documents whose lanes or dialogs could rightly wait for what the failed call would have brought.
bool isMeant(const ExpectFile& expectation) {
    const Script& script = expectation.script();
    const bool hasHost = script.recordsCalls || script.withStore || script.withProviders || !script.filesFolder.empty();
    return hasHost && script.failures.empty() && script.answers.empty() && script.refusals.empty() && !script.hostGone &&
           script.skipped.empty() && contentOf(expectation.document()).find("<parallel") == std::string::npos;
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 2) {
        std::fprintf(stderr, "usage: otx_host_faults FOLDER\n");
        return 2;
    }
    watchForCrashes();
    std::vector<fs::path> expectations;
    for (const auto& entry : fs::recursive_directory_iterator(argv[1]))
        if (entry.path().extension() == ".expect") expectations.push_back(entry.path());
    std::sort(expectations.begin(), expectations.end());
    Totals totals;
    for (const fs::path& path : expectations) {
        const ExpectFile expectation(path);
        if (isMeant(expectation)) Check(path.stem().string(), expectation, totals).run();
    }
    std::printf("%d documents, %d faults, %d mistakes\n", totals.documents, totals.faults, totals.mistakes);
    return totals.mistakes == 0 && totals.faults != 0 ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "otx_host_faults: %s\n", failure.what());
    return EXIT_FAILURE;
}
