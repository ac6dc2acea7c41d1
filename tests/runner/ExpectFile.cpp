// An expectation file: what to run, and what must come of it.
#include "ExpectFile.h"

#include <charconv>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <utility>

namespace documents {

namespace {

// The first word of a text, and the rest behind the blanks.
std::pair<std::string, std::string> split(const std::string& text) {
    const auto end = text.find(' ');
    if (end == std::string::npos) return {text, ""};
    const auto rest = text.find_first_not_of(' ', end);
    return {text.substr(0, end), rest == std::string::npos ? "" : text.substr(rest)};
}

// Nothing if the text isn't a number.
std::optional<int> numberIn(const std::string& text) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
    return number;
}

std::vector<std::string> words(std::string text) {
    std::vector<std::string> result;
    while (!text.empty()) {
        auto [word, rest] = split(text);
        result.push_back(std::move(word));
        text = std::move(rest);
    }
    return result;
}

// "N KIND [TEXT]".
void readFailure(const std::string& line, const std::string& text, HostFailures& failures) {
    const auto [call, rest] = split(text);
    const auto [kind, message] = split(rest);
    const auto number = numberIn(call);
    if (!number || *number < 1) throw std::runtime_error("no number of a call: " + line);
    HostFailure failure;
    failure.text = message;
    if (kind == "std") {
        failure.kind = HostFailure::Kind::standard;
    } else if (kind == "int") {
        failure.kind = HostFailure::Kind::integer;
    } else if (const auto exceptionKind = numberIn(kind)) {
        failure.exceptionKind = *exceptionKind;
    } else {
        throw std::runtime_error("no kind of failure: " + line);
    }
    failures[*number] = failure;
}

}  // namespace

ExpectFile::ExpectFile(const std::filesystem::path& path)
    : path_(path), document_(std::filesystem::path(path).replace_extension(".otx")) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("can't read " + path.string());
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with('%')) {
            transcript_.push_back(line);
        } else if (!transcript_.empty()) {
            throw std::runtime_error("a directive behind the transcript: " + line);
        } else {
            directives_.push_back(line);
            readDirective(line);
        }
    }
    if (script_.recordsCalls && !script_.vehicleFile.empty())
        throw std::runtime_error("either %host or %vehicle: both install the same objects");
    bool runs = false;
    for (const Step& step : script_.steps) runs = runs || step.kind == Step::Kind::run;
    if (!runs) script_.steps.push_back({Step::Kind::run, "main", "{}"});
}

void ExpectFile::readDirective(const std::string& line) {
    const auto [directive, rest] = split(line.substr(1));
    if (directive == "run") {
        const auto [procedure, json] = split(rest);
        if (procedure.empty()) throw std::runtime_error("no procedure: " + line);
        script_.steps.push_back({Step::Kind::run, procedure, json.empty() ? "{}" : json});
    } else if (directive == "context") {
        script_.steps.push_back({Step::Kind::context, "", rest});
    } else if (directive == "translations") {
        script_.steps.push_back({Step::Kind::translations, "", rest});
    } else if (directive == "log") {
        const auto [level, pattern] = split(rest);
        TraceFilter filter;
        const auto number = numberIn(level);
        if (!number) throw std::runtime_error("no level: " + line);
        filter.level = *number;
        if (!pattern.empty()) filter.pattern = pattern;
        script_.trace.push_back(filter);
    } else if (directive == "event") {
        script_.steps.push_back({Step::Kind::event, "", rest});
    } else if (directive == "sequence-log") {
        const auto number = numberIn(rest);
        if (!number) throw std::runtime_error("no level: " + line);
        script_.sequenceLog = *number;
    } else if (directive == "stops") {
        script_.stopKeys = rest.empty() ? std::vector<std::string>{"node"} : words(rest);
    } else if (directive == "zone") {
        if (rest.empty()) throw std::runtime_error("no time zone: " + line);
        script_.zone = rest;
    } else if (directive == "nohost") {
        script_.withHost = false;
    } else if (directive == "keep") {
        script_.keepMessages = true;
    } else if (directive == "host-gone") {
        script_.hostGone = true;
    } else if (directive == "host") {
        if (rest != "RECORD") throw std::runtime_error("no such host: " + line);
        script_.recordsCalls = true;
    } else if (directive == "vehicle") {
        script_.vehicleFile = fileNamed(rest, line);
    } else if (directive == "files") {
        script_.filesFolder = fileNamed(rest, line);
    } else if (directive == "folder") {
        script_.workingFolder = fileNamed(rest, line);
    } else if (directive == "plug-ins") {
        script_.withPlugIns = true;
    } else if (directive == "document") {
        document_ = fileNamed(rest, line);
    } else if (directive == "store") {
        const auto [kind, contents] = split(rest);
        if (kind != "RECORD") throw std::runtime_error("no such store: " + line);
        script_.withStore = true;
        if (!contents.empty()) script_.storeContents = contents;
    } else if (directive == "provider") {
        if (rest != "RECORD") throw std::runtime_error("no such provider: " + line);
        script_.withProviders = true;
    } else if (directive == "answer") {
        script_.answers.push_back(readAnswer(rest));
    } else if (directive == "fail") {
        readFailure(line, rest, script_.failures);
    } else if (directive == "refuse") {
        readFailure(line, rest, script_.refusals);
    } else if (directive == "skip") {
        const auto [name, reason] = split(rest);
        const auto mode = modeNamed(name);
        if (!mode || reason.empty()) throw std::runtime_error("no mode and reason: " + line);
        script_.skipped[*mode] = reason;
    } else {
        throw std::runtime_error("no such directive: " + line);
    }
}

std::filesystem::path ExpectFile::fileNamed(const std::string& name, const std::string& line) const {
    if (name.empty()) throw std::runtime_error("no file: " + line);
    return path_.parent_path() / name;
}

void ExpectFile::rewrite(const std::vector<std::string>& transcript) const {
    std::ofstream file(path_, std::ios::trunc);
    for (const std::string& line : directives_) file << line << '\n';
    for (const std::string& line : transcript) file << line << '\n';
    file.close();
    if (!file) throw std::runtime_error("can't write " + path_.string());
}

}  // namespace documents
