// complete_host FILE [YES|NO] [PATIENCE] [LIMIT]: a host with an operator, a store and a time limit, both times in
// milliseconds, runs a document twice.
#include "Mailbox.h"
#include "MemoryStore.h"
#include "Operator.h"
#include "TestRun.h"

#include <otx/log/CLog.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>

#include <otx/value/Functions.h>

#include <charconv>
#include <chrono>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace {

// Without a locale.
long long number(int argc, char** argv, int index, long long fallback) {
    if (index < argc) std::from_chars(argv[index], argv[index] + std::string_view(argv[index]).size(), fallback);
    return fallback;
}

void print(const Outcome& outcome) {
    if (outcome.kind != Outcome::Kind::finished) std::cout << outcome.text << '\n';
    for (const auto& [name, value] : OTX::ValMap(outcome.results)) std::cout << name << " = " << value << '\n';
}

}  // namespace

int main(int argc, char** argv) try {
    const std::string file = argc > 1 ? argv[1] : "service-counter.otx";
    const auto answer = argc > 2 && std::string(argv[2]) == "NO" ? COtxConfirmationType::No : COtxConfirmationType::Yes;
    const long long patience = number(argc, argv, 3, 1);
    const std::chrono::milliseconds limit(number(argc, argv, 4, 10'000));

    // Lines of the sequence's log (2) and the trace (3) come here once a level is set.
    Hvt::CLog::SetSink([](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string& line) { std::cerr << line << '\n'; });

    const auto store = std::make_shared<MemoryStore>();
    bool isGood = true;
    for (int i = 0; i < 2 && isGood; ++i) {
        const auto mailbox = std::make_shared<Mailbox>();
        const COtxMap arguments(std::map<const std::string, COtxValue>{{"patience", COtxInt(patience)}});
        TestRun run(file, "main", arguments, {mailbox, store});
        const Operator theOperator(run, mailbox, answer, std::cout);
        const Outcome outcome = run.waitOrCancel(limit);
        print(outcome);
        isGood = outcome.kind == Outcome::Kind::finished;
    }
    return isGood ? 0 : 1;
} catch (const std::exception& failure) {  // of this host itself: no memory, no thread
    std::cerr << failure.what() << '\n';
    return 2;
}
