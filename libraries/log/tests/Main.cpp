// Runs the tests; or, for one of them, logs into a file and ends at once: `log_tests --log-and-exit FILE`.
#include <otx/log/CLog.h>
#include <otx/log/LogOutput.h>

#include <gtest/gtest.h>

#include <string_view>

namespace {

int logAndExit(const char* file) {
    Hvt::LogOutput::ToFile({file, 0, 0});
    for (int line = 0; line < 10'000; ++line) Hvt::CLog(3).Get(4, 3) << "line";
    return 0;
}

}  // namespace

int main(int count, char** words) {
    if (count == 3 && std::string_view(words[1]) == "--log-and-exit") return logAndExit(words[2]);
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
