// The command line of velkotx, parsed with CLI11.
#include "program/Options.h"

#include "program/CommandTable.h"
#include "program/ExitStatus.h"
#include "text/OneLine.h"

#include <velkotx/Sequencer.h>

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <system_error>

namespace velkotx::host {

namespace {

constexpr const char* programFooter =
    "Standard output is data, standard error is for people. A FILE named - is standard input.\n"
    "\n"
    "Examples:\n"
    "  velkotx run examples/01-battery-check.otx --args examples/01-battery-check.json\n"
    "  velkotx info examples/01-battery-check.otx";

constexpr const char* runFooter =
    "Exit status: 0 finished, 1 an OTX exception that the sequence didn't take, 2 bad usage or a\n"
    "document that can't be loaded, 3 a runtime failure, 4 cancelled. Ctrl-C, SIGTERM and the hang-up\n"
    "of the terminal cancel the run, a second Ctrl-C or SIGTERM ends the program.\n"
    "\n"
    "Examples:\n"
    "  velkotx run examples/04-sort.otx --arg 'responseTimes=[31,18,47,18,25]'\n"
    "  velkotx run examples/02-retry.otx main --arg refusals=9 --json\n"
    "  velkotx run examples/06-map-decision.otx --args examples/06-map-decision.json \\\n"
    "          --context examples/06-map-decision.context.json\n"
    "  velkotx run examples/read-identification.otx --vehicle examples/vehicles/compact.json";

constexpr const char* debugFooter =
    "Commands come from a prompt, or line by line from standard input; 'help' lists them. Ctrl-C stops\n"
    "the run at its next statement.\n"
    "\n"
    "Exit status: that of the last run's outcome, as of run; 0 when nothing was run.\n"
    "\n"
    "Examples:\n"
    "  velkotx debug examples/02-retry.otx --arg refusals=2\n"
    "  printf 'start\\nstep\\nvars\\n' | velkotx debug examples/04-sort.otx";

constexpr const char* infoFooter =
    "Exit status: 0 described, 2 bad usage or a document that can't be loaded.\n"
    "\n"
    "Examples:\n"
    "  velkotx info examples/04-sort.otx\n"
    "  velkotx info --json - < examples/04-sort.otx";

constexpr const char* compileFooter =
    "Exit status: 0 written, 2 bad usage or a document that can't be loaded, 3 a file that can't be\n"
    "written. FILE may be compiled already; the same bytes come out.\n"
    "\n"
    "Examples:\n"
    "  velkotx compile examples/04-sort.otx -o sort.otxc\n"
    "  velkotx run sort.otxc --arg 'responseTimes=[31,18,47]'";

constexpr const char* dumpFooter =
    "Exit status: 0 printed, 2 bad usage or a file that isn't a compiled document.\n"
    "\n"
    "Examples:\n"
    "  velkotx dump sort.otxc\n"
    "  velkotx compile examples/04-sort.otx -o - | velkotx dump -";

constexpr const char* vehicleCheckFooter =
    "Exit status: 0 no mistake, 2 bad usage, mistakes, or a file that can't be read.\n"
    "\n"
    "Example:\n"
    "  velkotx vehicle check examples/vehicles/compact.json";

std::string versionLine() {
    return GetComponentName() + " " + GetComponentVersion() + " " + GetComponentDate();
}

// A variable of a shell that isn't set gives an empty word.
std::string complaintAboutName(const std::string& name) {
    return name.empty() ? "a name is needed" : "";
}

// An option that takes the name of a file, or of what else is told.
void addFile(CLI::App& command, const std::string& name, std::string& file, const std::string& help,
             const std::string& type = "FILE") {
    command.add_option(name, file, help)->type_name(type)->check(CLI::Validator(complaintAboutName, ""));
}

void addDocument(CLI::App& command, std::string& document,
                 const std::string& help = "The OTX document; - for standard input") {
    command.add_option("FILE", document, help)->required()->type_name("");
}

// One value each, so that FILE may follow.
CLI::Option& addRepeatable(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                           const std::string& help) {
    return *command.add_option(name, values, help)->allow_extra_args(false);
}

void addLevel(CLI::App& command, const std::string& name, std::optional<int>& level, const std::string& help) {
    command.add_option(name, level, help)->type_name("LEVEL (0 to 7)")->check(CLI::Range(0, 7).description(""));
}

// What is wrong with a number of bytes; nothing if it is one. The option's own conversion takes a negative one for a large one.
std::string refusedSize(const std::string& text) {
    std::int64_t size = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, size);
    return read.ec == std::errc() && read.ptr == end && size > 0 ? "" : "'" + text + "' is no size of 1 byte or more";
}

void addLog(CLI::App& command, LogOptions& log) {
    addLevel(command, "--log", log.level, "Write the trace and the sequence's log up to this level to standard error");
    addLevel(command, "--log-sequence", log.sequenceLevel, "The same for the sequence's log alone");
    addLevel(command, "--log-trace", log.traceLevel, "The same for the trace alone");
    addFile(command, "--log-file", log.file, "Add all that to this file instead");
    command.add_option("--log-limit", log.limit, "Begin the file anew ahead of this size; needs --log-file")
        ->type_name("BYTES")
        ->check(CLI::Validator(refusedSize, ""));
    command.add_option("--log-keep", log.kept, "Keep so many earlier files, 3 if not told; needs --log-limit")
        ->type_name("COUNT")
        ->check(CLI::Range(0U, 1000U).description(""));
}

void addSetUp(CLI::App& command, SetUpOptions& options) {
    command.add_option("PROCEDURE", options.procedure, "The procedure to run")->type_name("")->capture_default_str();
    addRepeatable(command, "--arg", options.arguments,
                  "An in-argument; VALUE is JSON, else a plain string. Wins over --args")
        .type_name("NAME=VALUE");
    addFile(command, "--args", options.argumentsFile, "In-arguments: a JSON object of name to value");
    addFile(command, "--context", options.contextFile, "Context variables: a JSON object of name to value");
    addFile(command, "--translations", options.translationsFile, "Translations: a JSON object of key to text");
    addFile(command, "--messages", options.messagesFile,
            "Write every message to the host here, one JSON object a line");
    addFile(command, "--vehicle", options.vehicleFile, "Talk to the simulated vehicle that this file describes");
    command.add_flag("--trace-pdu", options.tracePdu, "Write each PDU to standard error; needs --vehicle");
    addFile(command, "--persist", options.persistenceFile, "Keep the values that the sequence saves in this file");
    addFile(command, "--providers", options.providersFolder, "Find plug-ins of service providers in this folder", "DIR");
    addFile(command, "--store", options.storeFolder, "Let the sequence read the files of this folder", "DIR");
    addLog(command, options.log);
}

void addRun(CLI::App& program, RunOptions& options) {
    CLI::App& run = *program.add_subcommand("run", "Run a procedure of a document and print its out parameters");
    addDocument(run, options.document);
    addSetUp(run, options);
    run.add_flag("--json", options.json, "Print the outcome as one JSON object");
    addRepeatable(run, "--break", options.breakpoints, "Stop at the node of this id; needs --control or --answers")
        .type_name("ID");
    run.add_flag("--start-stopped", options.startStopped, "Stop at the first node; needs --control or --answers");
    addFile(run, "--control", options.controlFile, "Do what the lines of this file say, one JSON object each");
    addFile(run, "--answers", options.answersFile, "Answer messages by the rules of this file, a JSON array");
    run.add_option("--unattended", options.unattended,
                   "Ask nobody: a dialog cancels the run (so it is off a terminal), or gets its default")
        ->type_name("fail|default")
        ->check(CLI::IsMember({"fail", "default"}).description(""));
    run.footer(runFooter);
}

void addDebug(CLI::App& program, DebugOptions& options) {
    CLI::App& debug = *program.add_subcommand("debug", "Run a procedure of a document step by step");
    addDocument(debug, options.document, "The OTX document");
    addSetUp(debug, options);
    debug.footer(debugFooter);
}

void addInfo(CLI::App& program, InfoOptions& options) {
    CLI::App& info = *program.add_subcommand("info", "Describe a document: its name, procedures and global data");
    addDocument(info, options.document);
    info.add_flag("--json", options.json, "Print the description as one JSON object");
    info.footer(infoFooter);
}

void addCompile(CLI::App& program, CompileOptions& options) {
    CLI::App& compile = *program.add_subcommand("compile", "Write a document in the compiled form");
    addDocument(compile, options.document);
    compile.add_option("-o,--output", options.output, "Where to write it; - for standard output")
        ->type_name("OUT")
        ->required();
    compile.footer(compileFooter);
}

void addDump(CLI::App& program, DumpOptions& options) {
    CLI::App& dump = *program.add_subcommand("dump", "Print a compiled document field by field");
    dump.add_option("FILE", options.document, "The compiled document; - for standard input")->required()->type_name("");
    dump.footer(dumpFooter);
}

void addVehicle(CLI::App& program, VehicleCheckOptions& options) {
    CLI::App& vehicle = *program.add_subcommand("vehicle", "Check the description of a simulated vehicle");
    vehicle.require_subcommand(1);
    CLI::App& check = *vehicle.add_subcommand("check", "Tell every mistake in a vehicle file, with its place");
    check.add_option("FILE", options.vehicle, "The vehicle file; - for standard input")->required()->type_name("");
    check.footer(vehicleCheckFooter);
}

// "run, debug or info".
std::string listed(const std::vector<std::string>& words, const std::string& conjunction) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : i + 1 == words.size() ? ' ' + conjunction + ' ' : ", ") + words[i];
    return text;
}

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

std::string namesOf(const std::vector<const CLI::App*>& commands, const std::string& conjunction) {
    std::vector<std::string> names;
    for (const CLI::App* const command : commands)
        names.push_back(command->get_name());
    return listed(names, conjunction);
}

// "velkotx run".
std::string fullName(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    return (parent != nullptr ? fullName(*parent) + ' ' : "") + command.get_name();
}

// An option ahead of the command that it is for is one of nobody.
std::string complaintAboutOption(const CLI::App& app, const std::string& word) {
    std::vector<const CLI::App*> owners = commandsOf(app);
    std::erase_if(owners, [name = word.substr(0, word.find('='))](const CLI::App* command) {
        return command->get_option_no_throw(name) == nullptr;
    });
    const std::string refusal = '\'' + word + "' is no option of " + fullName(app);
    return owners.empty() ? refusal : refusal + ", but of " + namesOf(owners, "and") + ": it stands behind the command";
}

// What is wrong with the words for a command that has commands of its own. `words` are those that nobody took.
std::string complaintAboutCommand(const CLI::App& app, const std::vector<std::string>& words) {
    const std::string commands = namesOf(commandsOf(app), "or");
    const std::string whose = app.get_parent() != nullptr ? " of " + fullName(app) : "";
    if (words.empty())
        return "a command" + whose + " is missing: " + commands;
    if (words.front().starts_with("-") && words.front().find_first_not_of('-') != std::string::npos)
        return complaintAboutOption(app, words.front());
    return '\'' + words.front() + "' is no command" + whose + ": " + commands;
}

// Words that the program or a command with commands has left over stand ahead of the command, so they come first.
const CLI::App& commandAtFault(const CLI::App& program) {
    const CLI::App* command = &program;
    while (command->remaining().empty() && !command->get_subcommands().empty())
        command = command->get_subcommands().front();
    return *command;
}

// What is wrong with a command line, in words, and where help is.
std::string complaint(const CLI::App& program, const CLI::ParseError& error) {
    const CLI::App& command = commandAtFault(program);
    const std::string words = commandsOf(command).empty() ? error.what() : complaintAboutCommand(command, command.remaining());
    return words + " (" + fullName(command) + " --help tells the usage)";
}

}  // namespace

void addCommands(CLI::App& program, CommandOptions& options) {
    program.name("velkotx");
    program.description("Runs OTX test sequences (ISO 13209).");
    program.set_version_flag("--version", versionLine, "Print the component's name, version and date");
    program.require_subcommand(1);
    program.get_formatter()->label("SUBCOMMAND", "COMMAND");
    program.get_formatter()->label("Subcommands", "Commands");
    program.footer(programFooter);
    addRun(program, options.run);
    addDebug(program, options.debug);
    addInfo(program, options.info);
    addCompile(program, options.compile);
    addDump(program, options.dump);
    addVehicle(program, options.vehicleCheck);
}

Options parseCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    CLI::App program;
    CommandOptions options;
    addCommands(program, options);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return Answered{program.exit(error, out, err)};
        err << "velkotx: " << oneLine(complaint(program, error)) << '\n';
        return Answered{ExitStatus::badInput};
    }
    if (program.got_subcommand("run"))
        return options.run;
    if (program.got_subcommand("debug"))
        return options.debug;
    if (program.got_subcommand("compile"))
        return options.compile;
    if (program.got_subcommand("dump"))
        return options.dump;
    if (program.got_subcommand("vehicle"))
        return options.vehicleCheck;
    return options.info;
}

}  // namespace velkotx::host
