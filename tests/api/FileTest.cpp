// The file module against handles and stores of a host's own.
#include "BackgroundRun.h"
#include "Documents.h"
#include "LaneDocuments.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/host/HvtFileStore.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/IFileHandle.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <sstream>
#include <vector>

namespace {

using namespace api;

const std::string space = " xmlns:f=\"http://iso.org/OTX/1.0.0/File\"";
// From the type on to the end of the tag.
const std::string handleType = "f:FileReadHandle\"" + space + ">";
const std::string handle = "<f:handle xsi:type=\"f:FileReadHandleValue\" valueOf=\"file\"/>";

std::string assign(const std::string& id, const std::string& type, const std::string& name, const std::string& term,
                   const std::string& operands) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"" + type + "\" name=\"" + name +
           '"' + space + "/><term xsi:type=\"f:" + term + '"' + space + '>' + operands + "</term></realisation></action>";
}
std::string number(const std::string& element, int value) {
    return "<f:" + element + " xsi:type=\"IntegerLiteral\" value=\"" + std::to_string(value) + "\"/>";
}
std::string readBytes(const std::string& id, const std::string& operands = "") {
    return assign(id, "ByteFieldVariable", "bytes", "ReadBytes", handle + operands);
}
std::string open(const std::string& id, const std::string& path) {
    return assign(id, "f:FileReadHandleVariable", "file", "OpenFileForRead",
                  "<f:path xsi:type=\"StringLiteral\" value=\"" + path + "\"/>");
}
std::string isFile(const std::string& id) {
    return assign(id, "BooleanVariable", "there", "IsFile", "<f:path xsi:type=\"StringLiteral\" value=\"a\"/>");
}
const std::string close = "<action id=\"close\"><realisation xsi:type=\"f:CloseFile\"" + space +
                          "><f:handle xsi:type=\"f:FileReadHandleVariable\" name=\"file\"/></realisation></action>";

// Notes what it is asked for.
class Handle : public COtxValueBehaviour, public OTX::IFileHandle, public OTX::IFileReadHandle {
public:
    explicit Handle(std::vector<std::string>& calls) : COtxValueBehaviour(OTX::ValueType::FileReadHandle), calls_(calls) {}

    OTX::IFileHandle& FileHandle() override { return *this; }
    OTX::IFileReadHandle& FileReadHandle() override { return *this; }

    void Close() override { calls_.push_back("Close"); }
    COtxValue IsEof() override {
        calls_.push_back("IsEof");
        return COtxBool(true);
    }
    COtxValue ReadBytes(std::int64_t index, std::int64_t count) override {
        calls_.push_back("ReadBytes " + std::to_string(index) + ' ' + std::to_string(count));
        return COtxByteField();
    }
    COtxValue ReadLine() override {
        calls_.push_back("ReadLine");
        return COtxString("line");
    }

private:
    std::vector<std::string>& calls_;
};

class File : public testing::Test {
protected:
    // With a handle of the host's in `file`.
    std::vector<std::string> callsOf(const std::string& flow) {
        std::vector<std::string> calls;
        const auto sequencer = load(document(procedure(
            "main", flow, declared("inParam", "file", handleType),
            declared("variable", "bytes", "ByteField\">") + declared("variable", "line", "String\">") +
                declared("variable", "end", "Boolean\">"))));
        sequencer->SetHost(host);
        const COtxMap arguments(std::map<const std::string, COtxValue>{{"file", COtxValue(std::make_shared<Handle>(calls))}});
        sequencer->Run("main", arguments, false);
        return calls;
    }
    using Calls = std::vector<std::string>;

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
};

TEST_F(File, StandsForAnIndexOrACountThatIsLeftOutWithMinusOne) {
    EXPECT_EQ(callsOf(readBytes("1")), Calls{"ReadBytes -1 -1"});
    EXPECT_EQ(callsOf(readBytes("1", number("index", 2))), Calls{"ReadBytes 2 -1"});
    EXPECT_EQ(callsOf(readBytes("1", number("count", 3))), Calls{"ReadBytes -1 3"});
    EXPECT_EQ(callsOf(readBytes("1", number("index", 0) + number("count", 0))), Calls{"ReadBytes 0 0"});
}

TEST_F(File, MakesOneCallOfTheHandleEach) {
    EXPECT_EQ(callsOf(assign("1", "StringVariable", "line", "ReadLine", handle)), Calls{"ReadLine"});
    EXPECT_EQ(callsOf(assign("1", "BooleanVariable", "end", "IsEndOfFileReached", handle)), Calls{"IsEof"});
    EXPECT_EQ(callsOf(close), Calls{"Close"});
}

class Found : public Hvt::Fs::Stored {};

// Lets a call of Open go on only when so many are inside.
class Meeting : public HvtFileStore {
public:
    explicit Meeting(int expected) : expected_(expected) {}

    std::shared_ptr<Hvt::Fs::Stored> Open(const Hvt::Fs::FileDetails&, const std::string&) override {
        std::unique_lock lock(insideLock_);
        ++inside_;
        changed_.notify_all();
        if (!changed_.wait_for(lock, std::chrono::seconds(20), [this] { return inside_ >= expected_; }))
            throw COtxException(OTX::Exceptions_e::FileLockException, "alone");
        return std::make_shared<Found>();
    }
    std::shared_ptr<std::istream> Decode(std::shared_ptr<Hvt::Fs::Stored>, const std::string&) override {
        return std::make_shared<std::istringstream>("text");
    }
    COtxValue MetaData(const Hvt::Fs::FileDetails&, const std::string&) override { return metaData; }

    COtxValue metaData = COtxMap();

private:
    const int expected_;
    std::mutex insideLock_;  // guards inside_
    std::condition_variable changed_;
    int inside_ = 0;
};

class FileStoreOfTheHost : public testing::Test {
protected:
    std::string run(const std::string& flow, std::shared_ptr<HvtFileStore> store) {
        const auto sequencer = load(document(procedure("main", flow, declared("outParam", "there", "Boolean\">"),
                                                       declared("variable", "file", handleType))));
        sequencer->SetHost(host);
        sequencer->SetFileStore(std::move(store));
        return outcomeOfRun(*sequencer, "main");
    }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
};

TEST_F(FileStoreOfTheHost, IsCalledByLanesAtOnce) {
    EXPECT_EQ(run(parallel("p", {isFile("1"), open("2", "a"), isFile("3")}), std::make_shared<Meeting>(3)), R"({"there":true})");
}

TEST_F(FileStoreOfTheHost, MayAnswerTheEmptyValueForMetaDataAndNothingElseButAMap) {
    const auto store = std::make_shared<Meeting>(1);
    store->metaData = COtxValue();
    EXPECT_EQ(run(open("1", "a"), store), R"({"there":false})");
    store->metaData = COtxString("gzip");
    EXPECT_EQ(run(open("1", "a"), store).substr(0, 32), "exception TypeMismatchException:");
}

}  // namespace
