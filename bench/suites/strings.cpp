// Runs the procedures of bench/programs/strings.otx on strings of 20 and 2,000 characters.
#include "Programs.h"

namespace {

constexpr long long rounds = 2'000;

std::string repeated(const std::string& part, std::size_t size) {
    std::string text;
    while (text.size() < size) text += part;
    return text.substr(0, size);
}

// The second operand is the text itself, the part repeated to its size, or what is given.
enum class Other { text, repeated, given };

void runStrings(benchmark::State& state, const std::string& procedure, Other kind, const std::string& given) {
    const auto size = static_cast<std::size_t>(state.range(0));
    const std::string text = repeated("abcdefghij", size - 2) + "z!";
    const std::string other = kind == Other::text ? text : kind == Other::repeated ? repeated(given, size) : given;
    runProcedure(state, "strings", procedure,
                 {{"n", COtxInt(rounds)},
                  {"count", COtxInt(state.range(0) - 10)},
                  {"text", COtxString(text)},
                  {"other", COtxString(other)}});
}

}  // namespace

BENCHMARK_CAPTURE(runStrings, concatenate, "concatenate", Other::text, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, subString, "subString", Other::given, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, indexOf, "indexOf", Other::given, "z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, match, "match", Other::given, "[a-z]+z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, formatDate, "formatDate", Other::repeated, "yyyy-MM-dd HH:mm:ss ")->Arg(20)->Arg(2'000);

BENCHMARK_MAIN();
