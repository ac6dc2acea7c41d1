// The operator's thread, its inbox and its keyboard.
#include "OperatorFakes.h"
#include "operator/Conversation.h"
#include "operator/Inbox.h"
#include "operator/Operator.h"
#include "operator/TerminalInput.h"
#include "operator/Unattended.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <mutex>
#include <sstream>
#include <thread>
#include <utility>

namespace {

using namespace velkotx::host;

constexpr const char* question =
    R"({"eventType":"HMI-OpenScreen","screenName":"ConfirmDialog","modal":true,"parameters":{"title":"Sure",
        "messageType":{"MessageType":"YESNO_QUESTION"}}})";
constexpr const char* input = R"({"eventType":"HMI-OpenScreen","screenName":"InputDialog","modal":true,"parameters":{}})";

class OperatorThread : public testing::Test {
protected:
    OperatorThread() {
        auto keyboard = std::make_unique<MemoryInput>();
        keyboard_ = keyboard.get();
        operator_.emplace(std::make_unique<Conversation>(port_, terminal_), std::move(keyboard),
                          std::make_unique<Unattended>(WithoutOperator::fail, port_, terminal_));
        operator_->start();
    }

    FakePort port_;
    std::ostringstream terminal_;
    MemoryInput* keyboard_ = nullptr;
    std::optional<Operator> operator_;
};

TEST_F(OperatorThread, AnswersFromAThreadOfItsOwn) {
    operator_->sendRequest(OTX::FromJSON(question));
    keyboard_->type("y");
    port_.await(closedEvent("ConfirmDialog"));
    operator_->finish();
    EXPECT_EQ(port_.take(), resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})") + closedEvent("ConfirmDialog"));
    EXPECT_EQ(terminal_.str(), "-- Question: Sure --\ny yes, n no: ");
}

TEST_F(OperatorThread, EndsWhileAPromptWaits) {
    operator_->sendRequest(OTX::FromJSON(question));
    operator_->tell({ScreenNews::Kind::cancelled, {}, false, {}});
    operator_->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-CloseScreen","screenName":"ConfirmDialog"})"));
    operator_->finish();  // hangs if the prompt can't be called off
    EXPECT_EQ(port_.take(), "");
    EXPECT_EQ(terminal_.str().find("y yes") == std::string::npos,
              terminal_.str().find("cancelled") == std::string::npos)
        << "what was asked is called off, what was not isn't: " << terminal_.str();
}

TEST_F(OperatorThread, TakesNoInterestInOtherMessages) {
    operator_->sendRequest(OTX::FromJSON(R"({"eventType":"FlowStopped","status":{"id":0}})"));
    operator_->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-OpenScreen"})"));
    operator_->sendRequest(OTX::FromJSON(R"([1])"));
    operator_->finish();
    EXPECT_EQ(terminal_.str() + port_.take(), "");
}

TEST_F(OperatorThread, ShowsChangesInTime) {
    operator_->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-OpenScreen","screenName":"M","parameters":{"a":1}})"));
    operator_->sendRequest(
        OTX::FromJSON(R"({"eventType":"HMI-InParameterValueChanged","screenName":"M","parameters":{"a":2}})"));
    keyboard_->type("set b 1");
    port_.await(resultEvent("M", "1", "b"));
    keyboard_->type("close");
    port_.await(closedEvent("M"));
    operator_->finish();
    EXPECT_NE(terminal_.str().find("a = 2\n"), std::string::npos) << terminal_.str();
}

TEST_F(OperatorThread, WhoeverHasLeftIsNotAsked) {
    operator_->sendRequest(OTX::FromJSON(input));
    keyboard_->put({OperatorInput::What::gone, {}});
    port_.await("cancel");
    operator_->sendRequest(OTX::FromJSON(question));
    operator_->finish();
    EXPECT_EQ(port_.take(), "cancel\ncancel\n");
    EXPECT_NE(terminal_.str().find("InputDialog: nobody is there to answer"), std::string::npos) << terminal_.str();
    EXPECT_NE(terminal_.str().find("ConfirmDialog: nobody is there to answer"), std::string::npos) << terminal_.str();
}

TEST_F(OperatorThread, AKeyClosesWithoutAnAnswer) {
    operator_->sendRequest(OTX::FromJSON(input));
    keyboard_->put({OperatorInput::What::noAnswer, {}});
    port_.await(closedEvent("InputDialog"));
    operator_->finish();
    EXPECT_EQ(port_.take(), closedEvent("InputDialog"));
}

// News that come while the line is on its way.
class LateInput : public MemoryInput {
public:
    std::function<void()> ahead;

    Event next(bool reads, std::optional<std::chrono::milliseconds> limit) override {
        const Event event = MemoryInput::next(reads, limit);
        if (event.what == What::line && ahead)
            ahead();
        return event;
    }
};

TEST(OperatorThreads, ALineAnswersOnlyWhatItWasTypedFor) {
    FakePort port;
    std::ostringstream terminal;
    auto made = std::make_unique<LateInput>();
    LateInput& keyboard = *made;
    Operator theOperator(std::make_unique<Conversation>(port, terminal), std::move(made), nullptr);
    theOperator.sendRequest(OTX::FromJSON(question));
    keyboard.ahead = [&] {
        keyboard.ahead = {};
        theOperator.sendRequest(OTX::FromJSON(R"({"eventType":"HMI-CloseScreen","screenName":"ConfirmDialog"})"));
        theOperator.sendRequest(OTX::FromJSON(input));
    };
    theOperator.start();
    keyboard.type("y");
    keyboard.type("text");
    port.await(closedEvent("InputDialog"));
    theOperator.finish();
    EXPECT_EQ(port.take(), resultEvent("InputDialog", "\"text\"") + closedEvent("InputDialog"));
    EXPECT_NE(terminal.str().find("what was typed is dropped"), std::string::npos);
}

// A keyboard at which a line is typed in part.
class SlowInput : public MemoryInput {
public:
    std::string typed() const override {
        const std::lock_guard guard(typedLock_);
        return typed_;
    }
    bool discard() override {
        const std::lock_guard guard(typedLock_);
        return !std::exchange(typed_, {}).empty();
    }
    void typePart(const std::string& part) {
        const std::lock_guard guard(typedLock_);
        typed_ = part;
    }

private:
    mutable std::mutex typedLock_;
    std::string typed_;  // guarded by typedLock_
};

class OperatorTypesSlowly : public testing::Test {
protected:
    OperatorTypesSlowly() {
        auto made = std::make_unique<SlowInput>();
        keyboard_ = made.get();
        operator_.emplace(std::make_unique<Conversation>(port_, terminal_), std::move(made), nullptr);
        operator_->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-OpenScreen","screenName":"M","parameters":{"a":1}})"));
        operator_->start();
        keyboard_->awaitIdle();
        keyboard_->typePart("set b");
    }

    FakePort port_;
    std::ostringstream terminal_;
    SlowInput* keyboard_ = nullptr;
    std::optional<Operator> operator_;
};

TEST_F(OperatorTypesSlowly, ARefreshLeavesWhatIsTyped) {
    operator_->sendRequest(
        OTX::FromJSON(R"({"eventType":"HMI-InParameterValueChanged","screenName":"M","parameters":{"a":2}})"));
    keyboard_->awaitIdle();
    keyboard_->type("set b 2");
    port_.await(resultEvent("M", "2", "b"));
    operator_->finish();
    EXPECT_NE(terminal_.str().find("a = 2\nM> set b"), std::string::npos) << terminal_.str();
    EXPECT_EQ(terminal_.str().find("dropped"), std::string::npos) << terminal_.str();
}

TEST_F(OperatorTypesSlowly, WhatWasTypedForAScreenAnswersNoDialog) {
    operator_->sendRequest(OTX::FromJSON(input));
    keyboard_->awaitIdle();
    operator_->finish();
    EXPECT_EQ(keyboard_->typed(), "");
    EXPECT_NE(terminal_.str().find("M> \n-- what was typed is dropped, it was for something else\n-- Input --\nText: \n"),
              std::string::npos)
        << terminal_.str();
}

TEST_F(OperatorTypesSlowly, WhatWasTypedForADialogIsNoCommand) {
    operator_->sendRequest(OTX::FromJSON(question));
    keyboard_->awaitIdle();
    keyboard_->typePart("y");
    operator_->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-CloseScreen","screenName":"ConfirmDialog"})"));
    keyboard_->awaitIdle();
    operator_->finish();
    EXPECT_EQ(keyboard_->typed(), "");
    EXPECT_NE(terminal_.str().find("the run has closed it\n-- what was typed is dropped"), std::string::npos)
        << terminal_.str();
}

TEST_F(OperatorThread, WhatIsTypedAheadOfTheNextDialogIsForIt) {
    keyboard_->type("y");
    keyboard_->type("text");
    operator_->sendRequest(OTX::FromJSON(question));
    port_.await(closedEvent("ConfirmDialog"));
    operator_->sendRequest(OTX::FromJSON(input));
    port_.await(closedEvent("InputDialog"));
    operator_->finish();
    EXPECT_NE(port_.take().find(resultEvent("InputDialog", "\"text\"")), std::string::npos);
}

TEST(OperatorInbox, KeepsTheLatestChangeOnly) {
    Inbox inbox;
    const auto change = [&](const std::string& screen, const std::string& parameter, int value) {
        inbox.put(news(R"({"eventType":"HMI-InParameterValueChanged","screenName":")" + screen +
                       R"(","parameters":{")" + parameter + "\":" + std::to_string(value) + "}}"));
    };
    const auto open = [&](const std::string& screen) {
        inbox.put(news(R"({"eventType":"HMI-OpenScreen","screenName":")" + screen + R"(","parameters":{}})"));
    };
    for (int i = 0; i < 1000; ++i) {
        change("A", "a", i);
        change("A", "b", i);
        change("B", "a", i);
    }
    open("A");
    change("A", "a", 5);
    change("B", "a", 6);
    std::string taken;
    for (const ScreenNews& each : inbox.take())
        taken += each.screen + (each.parameters.empty() ? "" : each.parameters.begin()->first) +
                 (each.parameters.empty() ? " open" : jsonOf(each.parameters.begin()->second)) + ' ';
    EXPECT_EQ(taken, "Aa999 Ab999 Ba6 A open Aa5 ");
    change("A", "a", 7);
    EXPECT_EQ(inbox.take().size(), 1U);
    EXPECT_TRUE(inbox.take().empty());
}

TEST(OperatorNews, SharesNothingWithTheMessage) {
    const COtxValue message =
        OTX::FromJSON(R"({"eventType":"HMI-OpenScreen","screenName":"M","parameters":{"list":[1]}})");
    const auto read = readNews(message);
    const COtxValue parameters = OTX::GetParameter(message, "parameters", OTX::ValueType::Map);
    OTX::GetParameter(parameters, "list", OTX::ValueType::List).List().clear();
    EXPECT_EQ(jsonOf(read->parameters.at("list")), "[1]");
}

class PseudoTerminal {
public:
    PseudoTerminal() {
        if (openpty(&outer, &inner, nullptr, nullptr, nullptr) != 0)
            throw std::runtime_error("no pseudo-terminal");
    }
    ~PseudoTerminal() {
        hangUp();
        close(inner);
    }
    void type(const std::string& text) { EXPECT_EQ(write(outer, text.data(), text.size()), ssize_t(text.size())); }
    void hangUp() {
        if (outer >= 0)
            close(outer);
        outer = -1;
    }

    int outer = -1;
    int inner = -1;
};

TEST(OperatorTerminalInput, TakesLines) {
    PseudoTerminal terminal;
    TerminalInput keyboard(terminal.inner);
    terminal.type("one\ntwo\n\n");
    for (const char* line : {"one", "two", ""}) {
        const auto event = keyboard.next(true, {});
        EXPECT_EQ(event.what, OperatorInput::What::line);
        EXPECT_EQ(event.line, line);
    }
}

bool isCanonical(int terminal) {
    termios mode{};
    return tcgetattr(terminal, &mode) == 0 && (mode.c_lflag & ICANON) != 0 && (mode.c_lflag & ECHO) != 0;
}

TEST(OperatorTerminalInput, EditsTheLineItself) {
    PseudoTerminal terminal;
    std::ostringstream echo;
    TerminalInput keyboard(terminal.inner, &echo);
    keyboard.prepare();
    terminal.type("sot\x7Fme\none mo");
    EXPECT_EQ(keyboard.next(true, {}).line, "some");
    keyboard.wake();
    while (keyboard.typed() != "one mo")
        keyboard.next(true, std::chrono::milliseconds(0));
    EXPECT_EQ(echo.str(), "sot\b \bme\none mo");
    terminal.type("\x15\x04" "re\n");
    EXPECT_EQ(keyboard.next(true, {}).what, OperatorInput::What::noAnswer);
    EXPECT_EQ(keyboard.next(true, {}).line, "re");
}

TEST(OperatorTerminalInput, ForgetsWhatWasTyped) {
    PseudoTerminal terminal;
    std::ostringstream echo;
    TerminalInput keyboard(terminal.inner, &echo);
    keyboard.prepare();
    EXPECT_FALSE(keyboard.discard());
    terminal.type("one\ntwo\nthr");
    EXPECT_EQ(keyboard.next(true, {}).line, "one");
    EXPECT_TRUE(keyboard.discard());
    EXPECT_FALSE(keyboard.discard());
    terminal.type("y\n");
    EXPECT_EQ(keyboard.next(true, {}).line, "y");
}

TEST(OperatorTerminalInput, LeavesTheTerminalAsItWas) {
    PseudoTerminal terminal;
    std::ostringstream echo;
    {
        TerminalInput keyboard(terminal.inner, &echo);
        EXPECT_TRUE(isCanonical(terminal.inner));
        keyboard.prepare();
        EXPECT_FALSE(isCanonical(terminal.inner));
    }
    EXPECT_TRUE(isCanonical(terminal.inner));
    TerminalInput cancelled(terminal.inner, &echo);
    cancelled.prepare();
    cancelled.restore();
    cancelled.prepare();
    EXPECT_TRUE(isCanonical(terminal.inner));
}

TEST(OperatorTerminalInput, TakesTheTerminalBackWhenItGoesOn) {
    PseudoTerminal terminal;
    std::ostringstream echo;
    TerminalInput keyboard(terminal.inner, &echo);
    termios asItWas{};
    ASSERT_EQ(tcgetattr(terminal.inner, &asItWas), 0);
    keyboard.prepare();
    tcsetattr(terminal.inner, TCSANOW, &asItWas);  // as a shell does
    std::raise(SIGCONT);
    EXPECT_EQ(keyboard.next(true, {}).what, OperatorInput::What::woken);
    keyboard.prepare();
    EXPECT_FALSE(isCanonical(terminal.inner));
}

TEST(OperatorTerminalInput, CtrlDIsNoAnswerAndLinesMayFollow) {
    PseudoTerminal terminal;
    TerminalInput keyboard(terminal.inner);
    terminal.type("\x04");
    EXPECT_EQ(keyboard.next(true, {}).what, OperatorInput::What::noAnswer);
    terminal.type("x\n");
    EXPECT_EQ(keyboard.next(true, {}).line, "x");
}

TEST(OperatorTerminalInput, AHangUpIsTheEnd) {
    PseudoTerminal terminal;
    TerminalInput keyboard(terminal.inner);
    terminal.hangUp();
    EXPECT_EQ(keyboard.next(true, {}).what, OperatorInput::What::gone);
}

TEST(OperatorTerminalInput, TheEndOfAPipeIsTheEnd) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[1]);
    TerminalInput keyboard(ends[0]);
    EXPECT_EQ(keyboard.next(true, {}).what, OperatorInput::What::gone);
    close(ends[0]);
}

TEST(OperatorTerminalInput, LeavesLinesThatAreForNobody) {
    PseudoTerminal terminal;
    TerminalInput keyboard(terminal.inner);
    terminal.type("later\n");
    keyboard.wake();
    EXPECT_EQ(keyboard.next(false, {}).what, OperatorInput::What::woken);
    EXPECT_EQ(keyboard.next(false, std::chrono::milliseconds(0)).what, OperatorInput::What::woken);
    EXPECT_EQ(keyboard.next(true, {}).line, "later");
}

TEST(OperatorTerminalInput, IsWokenFromOtherThreads) {
    TerminalInput nobody(-1);
    std::thread waker([&] { nobody.wake(); });
    EXPECT_EQ(nobody.next(true, {}).what, OperatorInput::What::woken);
    waker.join();
}

}  // namespace
