// Runs the procedures of bench/programs/strings.otx on strings of 20 and 2,000 characters, of ASCII and others.
#include "Programs.h"

namespace {

constexpr long long rounds = 2'000;

// Ten characters each.
const std::string ascii = "abcdefghij";
const std::string wide = "abcdefg\xC3\xA9\xE4\xB8\xADj";

std::string repeated(const std::string& part, long long times) {
    std::string text;
    for (long long time = 0; time < times; ++time) text += part;
    return text;
}

// The second operand is the text itself, the part repeated to its size, or what is given.
enum class Other { text, repeated, given };

void runStrings(benchmark::State& state, const std::string& procedure, const std::string& part, Other kind,
                const std::string& given) {
    const long long size = state.range(0);
    const std::string text = repeated(part, size / 10 - 1) + "abcdefghz!";
    const std::string other = kind == Other::text ? text : kind == Other::repeated ? repeated(given, size / 20) : given;
    runProcedure(state, "strings", procedure,
                 {{"n", COtxInt(rounds)},
                  {"count", COtxInt(size - 10)},
                  {"text", COtxString(text)},
                  {"other", COtxString(other)}});
}

}  // namespace

BENCHMARK_CAPTURE(runStrings, concatenate, "concatenate", ascii, Other::text, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, length, "length", ascii, Other::given, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, lengthWide, "length", wide, Other::given, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, subString, "subString", ascii, Other::given, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, subStringWide, "subString", wide, Other::given, "")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, indexOf, "indexOf", ascii, Other::given, "z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, indexOfWide, "indexOf", wide, Other::given, "z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, replace, "replace", ascii, Other::given, "12345")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, replaceWide, "replace", wide, Other::given, "12345")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, match, "match", ascii, Other::given, "[a-z]+z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, matchWide, "match", wide, Other::given, "[a-z\xC3\xA9\xE4\xB8\xAD]+z!")->Arg(20)->Arg(2'000);
BENCHMARK_CAPTURE(runStrings, formatDate, "formatDate", ascii, Other::repeated, "yyyy-MM-dd HH:mm:ss ")->Arg(20)->Arg(2'000);

BENCHMARK_MAIN();
