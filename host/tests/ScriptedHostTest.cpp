// The scripted host: who sends what, in which order, on which thread.
#include "FakeSequencer.h"
#include "objects/RecordingEventSink.h"
#include "program/Inputs.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/ScriptedHost.h"
#include "program/script/SenderThread.h"

#include <otx/value/COtxString.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <mutex>
#include <sstream>
#include <thread>

namespace {

using namespace velkotx::host;
using namespace std::chrono_literals;

std::vector<AnswerRule> rules(const std::string& json) {
    std::istringstream stream(json);
    Inputs inputs(stream);
    return readAnswers(inputs, "-");
}

std::string jsonOf(const COtxValue& value) {
    const COtxValue json = value.ToJSON();
    return json.String();
}

class ScriptedHostTest : public testing::Test {
protected:
    ScriptedHostTest() {
        sequencer_.control = [this](const std::string& word) {
            const std::lock_guard guard(wordsLock_);
            words_ += word + ' ';
            thread_ = std::this_thread::get_id();
            if (word == "refused")
                throw std::runtime_error("no \"such\" thing");
            if (word == "last")
                done_.set_value();
            return COtxValue(COtxString("reply to " + word));
        };
    }

    std::string words() {
        const std::lock_guard guard(wordsLock_);
        return words_;
    }

    FakeSequencer sequencer_;
    std::ostringstream err_;
    const std::shared_ptr<RecordingEventSink> messages_ = std::make_shared<RecordingEventSink>();
    std::promise<void> done_;
    std::mutex wordsLock_;
    std::string words_;
    std::thread::id thread_;
};

TEST_F(ScriptedHostTest, AnswersInOrderOnAThreadOfItsOwn) {
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"a","send":[{"control":"1"},{"control":"refused"},
        {"control":"2"},{"control":"last"}]}])"), nullptr, err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    done_.get_future().wait();
    host.finish();
    EXPECT_EQ(words(), "1 refused 2 last ");
    EXPECT_NE(thread_, std::this_thread::get_id());
    EXPECT_EQ(err_.str(), "{\"refused\":\"no \\\"such\\\" thing\"}\n");
    std::string sent;
    for (const COtxValue& message : messages_->messages())
        sent += jsonOf(message) + ' ';
    EXPECT_EQ(sent,
              "{\"eventType\":\"a\"} {\"reply\":\"reply to 1\"} {\"reply\":\"reply to 2\"} {\"reply\":\"reply to last\"} ");
}

TEST_F(ScriptedHostTest, SendsWhatTheStartHasAheadOfTheRun) {
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"start","send":[{"control":"setbp"}]},
        {"on":"start","send":[{"control":"no second one"}]}])"), nullptr, err_);
    host.start();
    EXPECT_EQ(words(), "setbp ");
}

TEST_F(ScriptedHostTest, AMessageCalledStartStartsNothing) {
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"start","times":0,"send":[{"control":"1"}]},
        {"on":"a","send":[{"control":"last"}]}])"), nullptr, err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"start"})"));
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    done_.get_future().wait();
    host.finish();
    EXPECT_EQ(words(), "1 last ");
}

TEST_F(ScriptedHostTest, DropsWhatIsNotDueAtTheEnd) {
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"a","delayMs":86400000,"send":[{"control":"late"}]},
        {"on":"b","send":[{"control":"last"}]}])"), nullptr, err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    host.sendRequest(OTX::FromJSON(R"({"eventType":"b"})"));
    done_.get_future().wait();
    host.finish();
    EXPECT_EQ(words(), "last ");
}

TEST_F(ScriptedHostTest, HandsEventsOver) {
    std::promise<std::string> event;
    sequencer_.sendEvent = [&](const COtxValue& value) { event.set_value(jsonOf(value)); };
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"a","send":[{"eventType":"HMI-x","n":1}]}])"), nullptr,
                      err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    EXPECT_EQ(event.get_future().get(), R"({"eventType":"HMI-x","n":1})");
}

TEST_F(ScriptedHostTest, CancelsARunThatNobodyResumes) {
    std::promise<void> cancelled;
    sequencer_.control = [&](const std::string& word) {
        if (word == "cancel")
            cancelled.set_value();
        return COtxValue(COtxString());
    };
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"FlowStopped","send":[{"control":"status"}]}])"), nullptr,
                      err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"FlowStopped","status":{"id":0}})"));
    cancelled.get_future().wait();
    host.finish();
    EXPECT_EQ(err_.str(),
              "{\"refused\":\"a flow is stopped and nobody is left to resume it: the run is cancelled\"}\n");
}

TEST_F(ScriptedHostTest, DoesNotCancelWhatARuleHasResumed) {
    ScriptedHost host(sequencer_, messages_, rules(R"([{"on":"FlowStopped","send":[{"control":"run"}]},
        {"on":"a","send":[{"control":"last"}]}])"), nullptr, err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"FlowStopped","status":{"id":0}})"));
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    done_.get_future().wait();
    host.finish();
    EXPECT_EQ(words(), "run last ");
}

TEST_F(ScriptedHostTest, ReadsTheControlFileToItsEnd) {
    const auto file = std::filesystem::temp_directory_path() / ("control-" + std::to_string(getpid()));
    std::ofstream(file) << "{\"await\":\"a\"}\n\n{\"control\":\"1\"}\nnonsense\n{\"await\":\"b\"}\n{\"control\":\"last\"}";
    std::istringstream none;
    Inputs inputs(none);
    InterruptibleLines lines(inputs, file);
    std::filesystem::remove(file);
    ScriptedHost host(sequencer_, messages_, {}, &lines, err_);
    host.start();
    host.sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    host.sendRequest(OTX::FromJSON(R"({"eventType":"b"})"));
    done_.get_future().wait();
    host.finish();
    EXPECT_EQ(words(), "1 last ");
    EXPECT_TRUE(err_.str().starts_with("{\"refused\":\"line 4: ")) << err_.str();
}

TEST_F(ScriptedHostTest, AnAwaitEndsWithTheRun) {
    const auto file = std::filesystem::temp_directory_path() / ("control-" + std::to_string(getpid()));
    std::ofstream(file) << "{\"await\":\"a\"}\n{\"control\":\"1\"}\n";
    std::istringstream none;
    Inputs inputs(none);
    InterruptibleLines lines(inputs, file);
    std::filesystem::remove(file);
    ScriptedHost host(sequencer_, messages_, {}, &lines, err_);
    host.start();
    host.finish();
    EXPECT_EQ(words(), "");
    EXPECT_EQ(err_.str(), "{\"refused\":\"line 1: the run ended before a came\"}\n");
}

TEST_F(ScriptedHostTest, APipeThatNobodyWritesToHoldsNothingUp) {
    const auto pipe = std::filesystem::temp_directory_path() / ("pipe-" + std::to_string(getpid()));
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::istringstream none;
    Inputs inputs(none);
    InterruptibleLines lines(inputs, pipe);
    std::filesystem::remove(pipe);
    ScriptedHost host(sequencer_, messages_, {}, &lines, err_);
    host.start();
    host.finish();  // hangs if the reader can't be called off
    EXPECT_EQ(words(), "");
}

TEST(SenderThread, ADelayHoldsUpNobodyElse) {
    FakeSequencer sequencer;
    std::promise<void> done;
    std::string words;
    sequencer.control = [&](const std::string& word) {
        words += word;
        if (word == "3")
            done.set_value();
        return COtxValue();
    };
    RecordingEventSink messages;
    std::ostringstream err;
    CommandPort port(sequencer, messages, err);
    const auto command = [](const char* word) {
        return std::vector<HostCommand>{ControlCommand{word, OTX::FromJSON("{}")}};
    };
    const auto never = command("never"), first = command("1"), second = command("2"), third = command("3");
    std::optional<SenderThread> sender(std::in_place, port, [] {}, [] {});
    sender->put(never, std::chrono::hours(24));
    sender->put(first, 0ms);
    sender->put(second, 0ms);
    sender->put(third, 0ms);
    done.get_future().wait();
    sender.reset();
    EXPECT_EQ(words, "123");
}

TEST(SenderThread, SendsWhenTheDelayIsOver) {
    FakeSequencer sequencer;
    std::promise<std::chrono::steady_clock::time_point> sent;
    sequencer.control = [&](const std::string&) {
        sent.set_value(std::chrono::steady_clock::now());
        return COtxValue();
    };
    RecordingEventSink messages;
    std::ostringstream err;
    CommandPort port(sequencer, messages, err);
    const std::vector<HostCommand> command{ControlCommand{"late", OTX::FromJSON("{}")}};
    SenderThread sender(port, [] {}, [] {});
    const auto before = std::chrono::steady_clock::now();
    sender.put(command, 15ms);
    EXPECT_GE(sent.get_future().get() - before, 15ms);
}

}  // namespace
