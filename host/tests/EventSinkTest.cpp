// The event sinks, alone and from several threads.
#include "objects/FailingEventSink.h"
#include "objects/ForwardingEventSink.h"
#include "objects/JsonLinesEventSink.h"
#include "objects/RecordingEventSink.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace velkotx::host;

COtxValue message(const std::string& type, const COtxValue& content = COtxInt(1, COtxInt::Radix::Decimal)) {
    return COtxMap(std::map<const std::string, COtxValue>{{"eventType", COtxString(type)}, {"content", content}});
}

TEST(RecordingEventSink, KeepsMessagesInOrder) {
    RecordingEventSink sink;
    sink.sendRequest(message("first"));
    sink.sendRequest(message("second"));
    ASSERT_EQ(sink.messages().size(), 2U);
    EXPECT_EQ(sink.messages()[1], message("second"));
    EXPECT_EQ(sink.waitFor(0), message("first"));
}

TEST(RecordingEventSink, KeepsACopyOfItsOwn) {
    RecordingEventSink sink;
    const COtxValue list = COtxList();
    sink.sendRequest(message("list", list));
    list.List().push_back(COtxString("later"));
    EXPECT_EQ(sink.messages().front(), message("list", COtxList()));
}

TEST(RecordingEventSink, LetsAThreadWaitForAMessage) {
    RecordingEventSink sink;
    COtxValue seen;
    std::thread waiter([&] { seen = sink.waitFor(1); });
    sink.sendRequest(message("first"));
    sink.sendRequest(message("second"));
    waiter.join();
    EXPECT_EQ(seen, message("second"));
}

TEST(ForwardingEventSink, HandsOn) {
    const auto target = std::make_shared<RecordingEventSink>();
    ForwardingEventSink(target).sendRequest(message("a"));
    EXPECT_EQ(target->messages().size(), 1U);
    EXPECT_THROW(ForwardingEventSink(nullptr), std::invalid_argument);
}

TEST(JsonLinesEventSink, WritesObjectsOnly) {
    std::ostringstream out;
    JsonLinesEventSink sink(out);
    sink.sendRequest(COtxInt(5, COtxInt::Radix::Decimal));
    sink.sendRequest(COtxString("a"));
    EXPECT_EQ(out.str(), "{\"message\":5}\n{\"message\":\"a\"}\n");
}

TEST(FailingEventSink, RefusesTheMessageOfItsNumberOnly) {
    const auto target = std::make_shared<RecordingEventSink>();
    FailingEventSink sink(target, 2);
    sink.sendRequest(message("a"));
    try {
        sink.sendRequest(message("b"));
        FAIL() << "the second message has to be refused";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "The host refuses message 2");
    }
    sink.sendRequest(message("c"));
    ASSERT_EQ(target->messages().size(), 2U);
    EXPECT_EQ(target->messages()[1], message("c"));
}

TEST(JsonLinesEventSink, WritesOneObjectALine) {
    std::ostringstream out;
    JsonLinesEventSink sink(out);
    sink.sendRequest(message("with\nbreak"));
    sink.sendRequest(message("b"));
    EXPECT_EQ(out.str(), "{\"content\":1,\"eventType\":\"with\\nbreak\"}\n{\"content\":1,\"eventType\":\"b\"}\n");
}

TEST(JsonLinesEventSink, LinesOfSeveralThreadsDontMix) {
    std::ostringstream out;
    JsonLinesEventSink sink(out);
    std::vector<std::thread> senders;
    for (const std::string type : {"a", "b", "c", "d"})
        senders.emplace_back([&sink, type] {
            for (int i = 0; i < 50; ++i)
                sink.sendRequest(message(type));
        });
    for (std::thread& sender : senders)
        sender.join();
    std::istringstream lines(out.str());
    std::map<std::string, int> counts;
    for (std::string line; std::getline(lines, line);)
        ++counts[line];
    ASSERT_EQ(counts.size(), 4U);
    for (const auto& [line, count] : counts)
        EXPECT_EQ(count, 50) << line;
}

TEST(JsonLinesEventSink, ReportsAFullDisk) {
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    JsonLinesEventSink sink(out);
    EXPECT_THROW(sink.sendRequest(message("a")), std::runtime_error);
}

}  // namespace
