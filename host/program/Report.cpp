// Prints how a command ended.
#include "program/Report.h"

#include "program/Inputs.h"
#include "program/OneLine.h"
#include "program/Terminal.h"

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
        out << paint.name(oneLine(name.what())) << " = " << oneLine(text.str()) << '\n';
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

}  // namespace

int report(const Outcome& outcome, const std::string& document, bool json, const Streams& streams) {
    if (json)
        streams.out << toJson(outcome) << '\n';
    else if (outcome.kind == Outcome::Kind::finished)
        printOutParameters(outcome.out, streams.out);
    if (outcome.kind != Outcome::Kind::finished) {
        const Paint paint = Paint::forStandardError();
        streams.err << oneLine(displayName(document)) << ": " << paint.failure(oneLine(inWords(outcome))) << '\n';
    }
    return exitStatus(outcome.kind);
}

}  // namespace velkotx::host
