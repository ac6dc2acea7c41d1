// The command line of velkotx: what the user asked for.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace velkotx::host {

// What is logged and where to.
struct LogOptions {
    std::optional<int> level;            // of both that follow
    std::optional<int> sequenceLevel;    // of what the sequence itself logs
    std::optional<int> traceLevel;       // of what the sequencer says of its work
    std::string file;                    // empty for standard error
    std::optional<std::uint64_t> limit;  // bytes of the file
    std::optional<unsigned> kept;        // how many files that have reached the limit
};

// What a procedure is run with. Empty file names stand for options that weren't given, "-" for standard input.
struct SetUpOptions {
    std::string document;
    std::string procedure = "main";
    std::vector<std::string> arguments;  // NAME=VALUE, in the order given
    std::string argumentsFile;
    std::string contextFile;
    std::string translationsFile;
    std::string messagesFile;
    std::string vehicleFile;
    bool tracePdu = false;
    std::string persistenceFile;
    std::string providersFolder;
    LogOptions log;
    std::string storeFolder;
};

// velkotx run FILE [PROCEDURE].
struct RunOptions : SetUpOptions {
    bool json = false;
    std::vector<std::string> breakpoints;  // ids of nodes
    bool startStopped = false;
    std::string controlFile;
    std::string answersFile;
    std::string unattended;  // "fail" or "default"; empty where the user doesn't say
};

// velkotx debug FILE [PROCEDURE].
struct DebugOptions : SetUpOptions {};

// velkotx info FILE.
struct InfoOptions {
    std::string document;
    bool json = false;
};

// velkotx compile FILE -o OUT.
struct CompileOptions {
    std::string document;
    std::string output;
};

// velkotx dump FILE.
struct DumpOptions {
    std::string document;
};

// velkotx vehicle check FILE.
struct VehicleCheckOptions {
    std::string vehicle;
};

// The command line was answered already, with help, the version or a complaint: the program ends with this status.
struct Answered {
    int status;
};

using Options =
    std::variant<RunOptions, DebugOptions, InfoOptions, CompileOptions, DumpOptions, VehicleCheckOptions, Answered>;

// Parses the command line. Help and version go to `out`, one line about bad usage to `err`.
Options parseCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

}  // namespace velkotx::host
