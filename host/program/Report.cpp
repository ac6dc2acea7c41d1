// Prints how a command ended.
#include "program/Report.h"

#include "program/Inputs.h"
#include "program/OneLine.h"
#include "program/Terminal.h"

#include <otx/value/IString.h>

#include <exception>
#include <map>
#include <ostream>
#include <sstream>
#include <string_view>

namespace velkotx::host {

namespace {

void printOutParameters(const COtxValue& parameters, std::ostream& out) {
    const Paint paint = Paint::forStandardOutput();
    for (const auto& [name, value] : parameters.Map()) {
        std::ostringstream text;
        text << value;
        out << paint.name(oneLine(name.String())) << " = " << oneLine(text.str()) << '\n';
    }
}

std::string inWords(const Outcome& outcome) {
    std::string words = outcome.kind == Outcome::Kind::exception ? "uncaught " + outcome.what : outcome.what;
    // Words like "InternalError: " bring their own colon.
    const bool endsInColon = std::string_view(words).substr(0, words.find_last_not_of(' ') + 1).ends_with(':');
    if (!outcome.text.empty())
        words += (endsInColon ? " " : ": ") + outcome.text;
    return words;
}

// A value that contains itself, or is nested too deeply, has no JSON form: then that is the failure.
Outcome printable(const Outcome& outcome, std::string& json) {
    try {
        json = toJson(outcome);
        return outcome;
    } catch (const std::exception& error) {
        Outcome failure{Outcome::Kind::failed, COtxValue(), error.what(), {}};
        json = toJson(failure);
        return failure;
    }
}

void printFailure(const Outcome& outcome, const std::string& document, std::ostream& err) {
    const Paint paint = Paint::forStandardError();
    err << oneLine(displayName(document)) << ": " << paint.failure(oneLine(inWords(outcome))) << '\n';
}

}  // namespace

int report(const Outcome& outcome, const std::string& document, bool json, const Streams& streams) {
    Outcome reported = outcome;
    if (json) {
        std::string text;
        reported = printable(outcome, text);
        streams.out << text << '\n';
    } else if (outcome.kind == Outcome::Kind::finished) {
        printOutParameters(outcome.out, streams.out);
    }
    if (reported.kind != Outcome::Kind::finished)
        printFailure(reported, document, streams.err);
    return exitStatus(reported.kind);
}

}  // namespace velkotx::host
