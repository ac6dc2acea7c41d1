// An expectation file: what to run, and what must come of it.
#pragma once

#include "Mode.h"
#include "answering/AnswerRule.h"
#include "recording/CallRecorder.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace documents {

// One thing to do with the sequencer. The text is JSON.
struct Step {
    enum class Kind { run, context, translations, event };
    Kind kind = Kind::run;
    std::string procedure;
    std::string json = "{}";
};

// Which trace lines are recorded: those up to the level that match the glob.
struct TraceFilter {
    int level = 0;
    std::string pattern = "*";
};

// What the directives say.
struct Script {
    std::vector<Step> steps;
    std::vector<TraceFilter> trace;
    int sequenceLog = -1;               // the level up to which the sequence's own lines are recorded
    std::vector<std::string> stopKeys;  // of a stop's status; empty when stops aren't recorded
    std::string zone = "UTC0";  // the time zone, in the form of the variable TZ
    bool withHost = true;
    bool keepMessages = false;  // and look at them again when the run is over
    bool hostGone = false;  // the callback object is installed, and has gone before the first run
    bool recordsCalls = false;          // the recording host objects are installed
    std::filesystem::path vehicleFile;  // of the simulated vehicle that is installed; empty for none
    std::filesystem::path filesFolder;  // of the recording file store that is installed; empty for none
    HostFailures failures;
    HostFailures refusals;  // of messages, by their number
    std::vector<AnswerRule> answers;
    bool withProviders = false;  // the recording type of service providers
    bool withPlugIns = false;            // the folder of plug-ins that this build has made is named
    std::filesystem::path workingFolder;  // of the process meanwhile; empty for the one that it has
    bool withStore = false;
    std::string storeContents = "{}";  // JSON
    std::map<Mode, std::string> skipped;  // the reason by mode
};

class ExpectFile {
public:
    // Throws std::runtime_error with the line of a directive that it can't read.
    explicit ExpectFile(const std::filesystem::path& path);

    // The document that is meant: the one of the same name beside the file, if no directive names another.
    const std::filesystem::path& document() const { return document_; }
    const Script& script() const { return script_; }
    const std::vector<std::string>& transcript() const { return transcript_; }

    // Replaces the transcript in the file; the directives stay as they are written.
    void rewrite(const std::vector<std::string>& transcript) const;

private:
    void readDirective(const std::string& line);

    // What a directive names, seen from the folder of this file.
    std::filesystem::path fileNamed(const std::string& name, const std::string& line) const;

    std::filesystem::path path_;
    std::filesystem::path document_;
    std::vector<std::string> directives_;
    Script script_;
    std::vector<std::string> transcript_;
};

}  // namespace documents
