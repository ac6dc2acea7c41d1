// The line of the trace, its levels, and what it costs when it is off.
#include <OtxVars/OtxVars.h>
#include <Trace.h>

#include <otx/log/CLog.h>
#include <otx/value/COtxValue.h>
#include <velkotx/Sequencer.h>

#include <gtest/gtest.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <charconv>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace context_tests {

int traced() {
    OTX_TRACE(3, "a message: " << 1234);
    return __LINE__ - 1;
}

class Trace : public testing::Test {
protected:
    explicit Trace() {
        Hvt::CLog::SetSink([this](Hvt::TLogSubSys subsystem, Hvt::TLogLevel level, const std::string& line) {
            lines.push_back(std::to_string(subsystem) + '/' + std::to_string(level) + ' ' + line);
        });
    }
    ~Trace() override {
        Hvt::CLog::SetReportingLevel(3, -1);
        Hvt::CLog::SetSink({});
    }

    static std::string thread() {
        char digits[24];
        return {digits, std::to_chars(digits, digits + sizeof digits, ::syscall(SYS_gettid), 16).ptr};
    }

    // What a line says, behind its first fields.
    static std::string messageOf(const std::string& line, const std::string& function) {
        const auto place = line.find(':' + function + ':');
        return place == std::string::npos ? line : line.substr(place + function.size() + 2);
    }

    std::vector<std::string> lines;
};

TEST_F(Trace, LineHasThreadFileLineFunctionAndMessage) {
    Hvt::CLog::SetReportingLevel(3, 3);
    const int line = traced();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], "3/3 " + thread() + ':' + __FILE__ + ':' + std::to_string(line) +
                            ":context_tests::traced:a message: 1234");
}

TEST_F(Trace, CutsThePathBehindItsLastBackslash) {
    Hvt::CLog::SetReportingLevel(3, 4);
    static otxns::Trace::Place place("C:\\source\\VelkOTXe\\Run.cpp", 4000000, "void f()");
    otxns::Trace::write(4, place, [](std::ostream& out) { out << "m"; });
    EXPECT_EQ(lines, std::vector<std::string>{"3/4 " + thread() + ":Run.cpp:4000000:f:m"});
}

TEST_F(Trace, AsksTheLevelOfItsSubsystemAheadOfAllWork) {
    int evaluated = 0;
    Hvt::CLog::SetReportingLevel(2, 7);
    OTX_TRACE(0, ++evaluated);
    Hvt::CLog::SetReportingLevel(3, 2);
    OTX_TRACE(3, ++evaluated);
    EXPECT_EQ(evaluated, 0);
    OTX_TRACE(2, ++evaluated);
    Hvt::CLog::SetReportingLevel(2, -1);
    EXPECT_EQ(evaluated, 1);
    EXPECT_EQ(lines.size(), 1U);
}

TEST_F(Trace, TellsOfStacksAndFrames) {
    otxns::OtxVars vars;
    Hvt::CLog::SetReportingLevel(3, 4);
    vars.newStack();
    vars.push("p");
    vars.pop();
    vars.deleteStack();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].substr(0, 4), "3/4 ");
    EXPECT_EQ(messageOf(lines[0], "otxns::OtxVars::newStack"), "class otxns::OtxVars");
    EXPECT_EQ(messageOf(lines[1], "otxns::OtxVars::push"), "Enter: p");
    EXPECT_EQ(messageOf(lines[2], "otxns::OtxVars::pop"), "Exit: p");
    EXPECT_EQ(messageOf(lines[3], "otxns::OtxVars::deleteStack"), "class otxns::OtxVars");
}

TEST_F(Trace, TellsOfACommandAheadOfItsRefusal) {
    std::istringstream document(R"(<?xml version="1.0"?>
<otx xmlns="http://iso.org/OTX/1.0.0" id="o" package="p" version="1" timestamp="2026-01-15T10:00:00"/>)");
    const auto sequencer = velkotx::CreateSequencer(document);
    Hvt::CLog::SetReportingLevel(3, 2);
    sequencer->Control("status", COtxValue());
    EXPECT_THROW(sequencer->Control("Status", COtxValue()), std::runtime_error);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].substr(0, 4), "3/2 ");
    // Files are named by the folder of their subsystem.
    EXPECT_NE(lines[0].find(":VelkOTXe/Control.cpp:"), std::string::npos);
    EXPECT_EQ(messageOf(lines[0], "otxns::Sequencer_impl::Control"), "Control: status");
    EXPECT_EQ(messageOf(lines[1], "otxns::Sequencer_impl::Control"), "Control: Status");
    lines.clear();
    Hvt::CLog::SetReportingLevel(3, 1);
    sequencer->Control("status", COtxValue());
    EXPECT_TRUE(lines.empty());
}

TEST_F(Trace, TellsOfASavingAndItsSize) {
    std::istringstream document(R"(<?xml version="1.0"?>
<otx xmlns="http://iso.org/OTX/1.0.0" id="o" package="p" version="1" timestamp="2026-01-15T10:00:00"/>)");
    const auto sequencer = velkotx::CreateSequencer(document);
    Hvt::CLog::SetReportingLevel(3, 4);
    std::ostringstream saved;
    sequencer->Save(saved);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(messageOf(lines[0], "otxns::Sequencer_impl::Save"), "");
    EXPECT_EQ(messageOf(lines[1], "otxns::Sequencer_impl::Save"), std::to_string(saved.str().size()));
}

}  // namespace context_tests
