// Prints how a command ended.
#include "program/Report.h"

#include "program/Inputs.h"
#include "program/Place.h"
#include "program/Terminal.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <otx/value/IString.h>

#include <exception>
#include <map>
#include <ostream>

namespace velkotx::host {

namespace {

void printOutParameters(const COtxValue& parameters, std::ostream& out) {
    const Paint paint = Paint::forStandardOutput();
    for (const auto& [name, value] : parameters.Map())
        out << paint.name(oneLine(name.String())) << " = " << lineOf(value) << '\n';
}

std::string inWords(const Outcome& outcome) {
    std::string words = outcome.kind == Outcome::Kind::exception ? "uncaught " + outcome.what : outcome.what;
    if (outcome.text.empty())
        return words;
    if (!words.ends_with(": "))  // "InternalError: " brings its own
        words += ": ";
    return words + outcome.text;
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
    const bool loading = outcome.kind == Outcome::Kind::unloadable;
    PlacedMessage placed = loading ? takePlace(inWords(outcome)) : PlacedMessage{"", inWords(outcome)};
    if (outcome.line != 0)
        placed.place = ':' + std::to_string(outcome.line) + ':' + std::to_string(outcome.column);
    if (!outcome.hint.empty())
        placed.message += " (" + outcome.hint + ')';
    err << oneLine(displayName(document)) << placed.place << ": " << paint.failure(oneLine(placed.message)) << '\n';
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
