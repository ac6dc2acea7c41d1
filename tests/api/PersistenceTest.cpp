// Load and Save against the store of a host.
#include "BackgroundRun.h"
#include "Documents.h"
#include "LaneDocuments.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/host/PersistenceHost.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <mutex>
#include <stdexcept>
#include <vector>

namespace {

using namespace api;

const std::string space = " xmlns:r=\"http://iso.org/OTX/1.0.0/Persistence";
const std::string firstItem = "<path><stepByIndex xsi:type=\"IntegerLiteral\" value=\"0\"/></path>";

std::string persistent(const std::string& id, const std::string& action, const std::string& variable, const std::string& rest = "",
                       const std::string& path = "") {
    const std::string type = variable == "items" ? "ListVariable" : "IntegerVariable";
    return "<action id=\"" + id + "\"><realisation xsi:type=\"r:" + action + '"' + space + "\">" + rest +
           "<r:value xsi:type=\"" + type + "\" name=\"" + variable + "\">" + path + "</r:value></realisation></action>";
}
std::string loadOf(const std::string& id, const std::string& variable, const std::string& isLoaded = "", const std::string& path = "") {
    return persistent(id, "Load", variable, isLoaded.empty() ? "" : "<r:isLoaded name=\"" + isLoaded + "\"/>", path);
}
std::string saveOf(const std::string& id, const std::string& variable, const std::string& path = "") {
    return persistent(id, "Save", variable, "", path);
}
// The class of an exception of this module, where a document names one.
std::string exceptionClass(const std::string& name) { return "r:" + name + '"' + space; }

// Keeps handles as they come, and the order of the calls.
class Store : public PersistenceHost {
public:
    bool Load(const std::string& name, COtxValue& value) override {
        const std::lock_guard guard(storeLock_);
        calls.push_back("Load " + name);
        if (failure) failure();
        const auto found = values.find(name);
        if (found == values.end()) return false;
        value = found->second;
        return true;
    }
    void Save(const std::string& name, const COtxValue& value) override {
        const std::lock_guard guard(storeLock_);
        calls.push_back("Save " + name + ' ' + json(value));
        if (failure) failure();
        values[name] = value;
    }

    std::map<std::string, COtxValue> values;
    std::vector<std::string> calls;
    std::function<void()> failure;

private:
    // Guards all of the above during a run.
    std::mutex storeLock_;
};

const std::string integers = integer("outParam", "a", 7);
const std::string list = listOf("variable", "items");
const std::string known = "<outParam id=\"d-known\" name=\"known\"><realisation><dataType xsi:type=\"Boolean\"><init value=\"true\"/>"
                          "</dataType></realisation></outParam>";
const std::string saveFailed = "exception PersistenceSaveException: Failed to save persistence value";

class PersistenceActions : public testing::Test {
protected:
    std::string run(const std::string& flow, const std::string& parameters = integers, const std::string& locals = "",
                    const std::string& moreProcedures = "") {
        const auto sequencer = load(document(procedure("main", flow, parameters, locals) + moreProcedures));
        sequencer->SetHost(host);
        sequencer->SetPersistence(store);
        return outcomeOfRun(*sequencer, "main");
    }
    using Calls = std::vector<std::string>;

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<Store> store = std::make_shared<Store>();
};

TEST_F(PersistenceActions, LoadWhatIsStored) {
    store->values["a"] = COtxInt(5);
    EXPECT_EQ(run(loadOf("1", "a", "known"), integers + known), R"({"a":5,"known":true})");
    EXPECT_EQ(store->calls, Calls{"Load a"});
}

TEST_F(PersistenceActions, LeaveAVariableOfWhichNothingIsStored) {
    EXPECT_EQ(run(loadOf("1", "a", "known"), integers + known), R"({"a":7,"known":false})");
    EXPECT_EQ(run(loadOf("1", "a")), R"({"a":7})");
}

TEST_F(PersistenceActions, SaveTheValueUnderTheVariablesName) {
    EXPECT_EQ(run(saveOf("1", "a") + set("2", "a", 8) + saveOf("3", "a")), R"({"a":8})");
    EXPECT_EQ(store->calls, (Calls{"Save a 7", "Save a 8"}));
}

TEST_F(PersistenceActions, ApplyAPathToTheValueAndNotToTheName) {
    store->values["items"] = COtxInt(5);
    const std::string items = listOf("outParam", "items");
    EXPECT_EQ(run(append("1", "items") + loadOf("2", "items", "", firstItem) + saveOf("3", "items", firstItem), items), R"({"items":[5]})");
    EXPECT_EQ(store->calls, (Calls{"Load items", "Save items 5"}));
}

TEST_F(PersistenceActions, ShareAValueBetweenVariablesOfOneName) {
    EXPECT_EQ(run(call("1", "other") + loadOf("2", "a"), integers, "", procedure("other", saveOf("3", "a"), "", integer("variable", "a", 3))),
              R"({"a":3})");
}

TEST_F(PersistenceActions, HandTheStoreACopyOfAContainer) {
    EXPECT_EQ(run(saveOf("1", "items") + append("2", "items"), "", list), "{}");
    EXPECT_EQ(json(store->values["items"]), "[]");
}

TEST_F(PersistenceActions, WithoutAStoreFailAsTheMachineryWhenLoadingAndAsAnExceptionWhenSaving) {
    store = nullptr;
    EXPECT_EQ(run(loadOf("1", "a")), "failure Persistence not initialised: ");
    EXPECT_EQ(run(saveOf("1", "a")), saveFailed);
}

TEST_F(PersistenceActions, TurnEachFailureOfASaveIntoTheOneException) {
    for (const auto& failure : {std::function<void()>([] { throw std::runtime_error("no"); }),
                                std::function<void()>([] { throw COtxException(OTX::Exceptions_e::ArithmeticException, "no"); })}) {
        store->failure = failure;
        EXPECT_EQ(run(saveOf("1", "a")), saveFailed);
    }
}

TEST_F(PersistenceActions, LetWhatIsNoExceptionOfTheLibraryPassASave) {
    store->failure = [] { throw 5; };
    EXPECT_THROW(run(saveOf("1", "a")), int);
}

TEST_F(PersistenceActions, ReadTheVariableBeforeTheStoreIsAsked) {
    EXPECT_EQ(run(saveOf("1", "unknown")), saveFailed);
    EXPECT_EQ(store->calls, Calls{});
}

TEST_F(PersistenceActions, AskTheStoreBeforeTheVariableIsWritten) {
    store->values["unknown"] = COtxInt(1);
    EXPECT_EQ(run(loadOf("1", "unknown", "known"), known), "exception InvalidReferenceException: unknown");
    EXPECT_EQ(store->calls, Calls{"Load unknown"});
}

TEST_F(PersistenceActions, LetTheFailuresOfALoadPass) {
    store->failure = [] { throw COtxException(OTX::Exceptions_e::PersistenceException, "damaged"); };
    EXPECT_EQ(run(loadOf("1", "a")), "exception PersistenceException: damaged");
    store->failure = [] { throw std::runtime_error("no"); };
    EXPECT_EQ(run(loadOf("1", "a")), "other no");
}

TEST_F(PersistenceActions, CanBeCaughtByTheExactClassOfTheFailure) {
    store->failure = [] { throw std::runtime_error("no"); };
    EXPECT_EQ(run(handlerOf(exceptionClass("PersistenceSaveException"), "h", saveOf("1", "a"), set("2", "a", 1))), R"({"a":1})");
    EXPECT_EQ(run(handlerOf(exceptionClass("PersistenceException"), "h", saveOf("1", "a"), set("2", "a", 1))), saveFailed);
}

TEST_F(PersistenceActions, BearLanesThatChangeWhatIsSaved) {
    constexpr int passes = 200;
    const std::string counters = integer("variable", "i", 0) + integer("variable", "j", 0);
    EXPECT_EQ(run(parallel("p", {loopOf("l1", "i", passes, append("1", "items")), loopOf("l2", "j", passes, saveOf("2", "items"))}) +
                      saveOf("3", "items"),
                  "", list + counters),
              "{}");
    EXPECT_EQ(store->calls.size(), passes + 1U);
    EXPECT_EQ(store->values["items"].List().size(), std::size_t{passes});
}

}  // namespace
