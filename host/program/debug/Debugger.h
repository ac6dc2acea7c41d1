// The debugger: commands of a person or a script, done one after the other.
#pragma once

#include "program/Streams.h"
#include "program/debug/DebugRun.h"
#include "program/debug/FlowStatus.h"
#include "program/debug/NodeIndex.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>

namespace velkotx::host {

class SetUp;

// What is debugged. The references outlive the debugger.
struct Debuggee {
    const std::string& name;       // of the file, for messages
    const std::string& procedure;  // that is run unless a command names another
    const std::string& document;   // in the compiled form
    const NodeIndex& nodes;
    const SetUp& setUp;
};

// Does each command before the next one is taken, on one thread, which has SIGINT blocked. What a command says goes to
// standard output; only the failure of a run goes to standard error as well, as of the command run.
class Debugger {
public:
    Debugger(const Debuggee& debuggee, const Streams& streams);
    ~Debugger();

    Debugger(const Debugger&) = delete;
    Debugger& operator=(const Debugger&) = delete;

    // Does a line. False when it was "quit". With `repeats`, an empty line does the last step or continue again.
    bool obey(const std::string& line, bool repeats);

    // Says what has happened since the last command.
    void reportNews();

    // Ends a run that lasts and reports it. Gives the program's exit status: that of the last run, 0 without one.
    int finish();

private:
    enum class Argument { none, possible, needed };

    struct Command {
        const char* word;
        const char* argument;  // as the help shows it, such as "[FLOW]"
        Argument takes;
        bool isRepeated;  // by an empty line
        const char* help;
        void (Debugger::*work)(const std::string& argument);
    };

    static std::span<const Command> commands();
    void obey(const std::string& word, const std::string& argument);

    void setBreakpoint(const std::string& idOrName);
    void clearBreakpoints(const std::string& idOrName);
    void startRun(const std::string& procedure);
    void startStopped(const std::string& procedure);
    void continueFlows(const std::string& flow);
    void stepFlows(const std::string& flow);
    void letGo(const std::string& flow);
    void wait(const std::string& milliseconds);
    void pause(const std::string& flow);
    void cancel(const std::string&);
    void inject(const std::string& typeAndText);
    void showFlows(const std::string&);
    void showFrames(const std::string& flow);
    void showVariables(const std::string& flow);
    void showGlobals(const std::string&);
    void print(const std::string& name);
    void list(const std::string& procedure);
    void help(const std::string&);
    void quit(const std::string&);

    void listBreakpoints();
    void start(const std::string& procedure, bool stopped);
    enum class Resume { run, step };
    void resume(const std::string& flow, Resume how);
    std::set<RunBoard::Flow> flowsToResume(const std::string& flow);
    std::size_t lanesAt(RunBoard::Flow flow) const;
    void reportResumed(bool isUnderWay);
    void reportStops();
    // When the run has ended.
    bool reportEnd();

    // The run; throws CommandError when there is none.
    DebugRun& activeRun();
    COtxValue control(const std::string& command, const std::optional<long long>& flow = {});
    // A command that is for flows that run.
    void controlRunning(const std::string& command, std::map<const std::string, COtxValue> parameters,
                        const std::optional<long long>& flow);
    // Throws CommandError for a flow that runs, and what the run throws for one that isn't there.
    COtxValue requireStopped(RunBoard::Flow flow);
    // The flow that is meant by a number, or by none: a stopped one. Throws CommandError.
    FlowStatus statusOf(const std::string& flow);
    std::optional<RunBoard::Flow> currentFlow();
    std::string placeText(const std::string& node, const std::vector<std::string>& frames) const;
    void say(const std::string& line);

    const Debuggee debuggee_;
    const Streams streams_;
    std::set<std::string> breakpoints_;  // ids
    std::unique_ptr<DebugRun> run_;
    std::optional<RunBoard::Flow> current_;
    std::string repeated_;  // the last step or continue
    bool isOver_ = false;
    int exitStatus_ = 0;
};

}  // namespace velkotx::host
