// The variable store from inside: stacks, frames and scopes, with and without what they need.
#include <OtxVars/OtxContextVariable.h>
#include <OtxVars/OtxVars.h>

#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/IException.h>
#include <velkotx/Exceptions.h>

#include <gtest/gtest.h>

#include "Slots.h"

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using otxns::OtxContextVarMap;
using otxns::OtxVarMap;
using otxns::OtxVars;

std::shared_ptr<OtxVariable> cell(long long value) { return std::make_shared<OtxVariable>(COtxInt(value)); }
std::shared_ptr<OtxVariable> emptyCell() { return std::make_shared<OtxVariable>(COtxValue()); }

// "kind text" of what the work throws; empty if it throws nothing.
template <class Work>
std::string raised(Work work) {
    try {
        work();
        return {};
    } catch (const COtxValue& exception) {
        return std::to_string(static_cast<int>(exception.Exception().Kind())) + ' ' + exception.Exception().Text();
    } catch (const velkotx::OTXRuntimeException& failure) {
        return std::string(failure.what()) + ": " + failure.text();
    }
}

const std::string invalidStack = "InternalError: Invalid stack pointer";

class Store : public testing::Test {
protected:
    const std::thread::id self = std::this_thread::get_id();
    OtxVars vars;
};

TEST_F(Store, BeginsAStackOnceAndEndsIt) {
    vars.newStack();
    vars.push("p");
    vars.newStack();
    EXPECT_EQ(vars.FrameNames(self), std::vector<std::string>{"p"});
    vars.deleteStack();
    EXPECT_EQ(vars.StackDepth(), 0U);
    EXPECT_TRUE(vars.FrameNames(self).empty());
}

TEST_F(Store, BeginsTheStackOfALaneWithTheParentsTopFrame) {
    vars.newStack();
    vars.push("outer");
    vars.TopFrame(self).Add("o", cell(1));
    vars.push("inner");
    vars.TopFrame(self).Add("i", cell(2));
    std::thread([&] {
        vars.newStack(self);
        EXPECT_EQ(vars.FrameNames(std::this_thread::get_id()), std::vector<std::string>{"inner"});
        EXPECT_EQ(raised([&] { vars.Get("o"); }), "1 o");
        vars.Set("i", COtxInt(7));
        vars.TopFrame(std::this_thread::get_id()).Add("own", cell(3));
        EXPECT_EQ(vars.Get("own").Int(), 3);
        vars.deleteStack();
    }).join();
    EXPECT_EQ(vars.Get("i").Int(), 7);
    EXPECT_EQ(raised([&] { vars.Get("own"); }), "1 own");
}

TEST_F(Store, RefusesAParentWithoutAFrame) {
    vars.newStack();
    std::thread([&] { EXPECT_EQ(raised([&] { vars.newStack(self); }), invalidStack); }).join();
    vars.deleteStack();
    std::thread([&] { EXPECT_EQ(raised([&] { vars.newStack(self); }), invalidStack); }).join();
}

TEST_F(Store, RefusesTheTopOfAStackWithoutAFrame) {
    EXPECT_EQ(raised([&] { vars.TopFrame(self); }), invalidStack);
    vars.newStack();
    EXPECT_EQ(raised([&] { vars.TopFrame(self); }), invalidStack);
    EXPECT_EQ(raised([&] { vars.Scope(false); }), invalidStack);
    EXPECT_EQ(&vars.Scope(true), &vars.Globals());
}

TEST_F(Store, NamesFramesFromTheBottom) {
    vars.newStack();
    for (const char* name : {"a", "b", "b", "c"}) vars.push(name);
    EXPECT_EQ(vars.FrameNames(self), (std::vector<std::string>{"a", "b", "b", "c"}));
    vars.pop();
    EXPECT_EQ(vars.StackDepth(), 3U);
}

TEST_F(Store, UnwindsToADepthAndRefusesToBuildOneUp) {
    vars.newStack();
    for (const char* name : {"a", "b", "c"}) vars.push(name);
    vars.Unwind(3);
    EXPECT_EQ(vars.StackDepth(), 3U);
    EXPECT_EQ(raised([&] { vars.Unwind(4); }), invalidStack);
    EXPECT_EQ(vars.StackDepth(), 3U);
    vars.Unwind(1);
    EXPECT_EQ(vars.FrameNames(self), std::vector<std::string>{"a"});
    vars.Unwind(0);
    EXPECT_EQ(vars.StackDepth(), 0U);
}

TEST_F(Store, ReadsTheTopFrameThenTheGlobals) {
    vars.newStack();
    vars.push("p");
    vars.Globals().Add("v", cell(1));
    EXPECT_EQ(vars.Get("v").Int(), 1);
    vars.TopFrame(self).Add("v", emptyCell());
    EXPECT_EQ(vars.Get("v").Int(), 1);
    vars.Set("v", COtxInt(2));
    EXPECT_EQ(vars.Get("v").Int(), 2);
    EXPECT_EQ(vars.Globals().Value(otxns::Name("v")).Int(), 1);
    vars.push("q");
    EXPECT_EQ(vars.Get("v").Int(), 1);
}

TEST_F(Store, CountsAGlobalWithoutAValueAsMissing) {
    vars.Globals().Add("v", emptyCell());
    EXPECT_EQ(raised([&] { vars.Get("v"); }), "1 v");
}

TEST_F(Store, GivesTheCellWhateverItHolds) {
    vars.newStack();
    vars.push("p");
    const auto global = cell(1), local = emptyCell();
    vars.Globals().Add("v", global);
    EXPECT_EQ(vars.GetVariable("v"), global);
    vars.TopFrame(self).Add("v", local);
    EXPECT_EQ(vars.GetVariable("v"), local);
    EXPECT_EQ(raised([&] { vars.GetVariable("w"); }), "1 w");
}

TEST_F(Store, WritesAndBindsTheTopFrameThenTheGlobals) {
    vars.newStack();
    vars.push("p");
    vars.Globals().Add("v", cell(1));
    const auto other = cell(5);
    vars.Bind("v", other);
    EXPECT_EQ(vars.Globals().Find("v"), other);
    vars.TopFrame(self).Add("v", cell(2));
    const auto third = cell(6);
    vars.Bind("v", third);
    EXPECT_EQ(vars.TopFrame(self).Find("v"), third);
    EXPECT_EQ(vars.Globals().Find("v"), other);
    EXPECT_EQ(raised([&] { vars.Set("w", COtxInt(1)); }), "1 w");
    EXPECT_EQ(raised([&] { vars.Bind("w", other); }), "1 w");
}

TEST_F(Store, DeclaresInAFrameOnlyAndKeepsTheFirst) {
    const otxns::Name v("v");
    EXPECT_EQ(raised([&] { vars.Declare(v, COtxInt(1)); }), invalidStack);
    vars.newStack();
    EXPECT_EQ(raised([&] { vars.Declare(v, COtxInt(1)); }), invalidStack);
    EXPECT_EQ(raised([&] { vars.DeclareInteger(v, 1); }), invalidStack);
    vars.push("p");
    vars.DeclareInteger(v, 1);
    vars.DeclareInteger(v, 2);
    vars.Declare(v, COtxString("three"));
    EXPECT_EQ(vars.Get("v").Int(), 1);
}

TEST_F(Store, GivesTheCellsOfAnEndedCallToTheNextUnlessSomeoneHasThem) {
    const otxns::Name free("free"), held("held"), watched("watched"), own("own"), next("next"), empty("empty");
    vars.newStack();
    vars.push("p");
    vars.DeclareInteger(held, 1);
    vars.DeclareInteger(watched, 2);
    const auto kept = vars.GetVariable(held);
    const COtxMonitorChangeEventSource source;
    vars.GetVariable(watched)->AddEventSource("watched", source);
    vars.TopFrame(self).Add("own", std::make_shared<OtxContextVariable>(COtxInt(3)));
    vars.Declare(free, COtxString("text"));
    const OtxVariable* const reused = vars.GetVariable(free).get();
    vars.pop();
    vars.push("q");
    vars.Declare(next, COtxValue());
    EXPECT_EQ(vars.GetVariable(next).get(), reused);
    EXPECT_EQ(vars.GetVariable(next)->Value().Type(), OTX::ValueType::Empty);
    vars.DeclareInteger(empty, 7);
    EXPECT_EQ(kept->Value().Int(), 1);
    vars.Set(empty, COtxInt(8));
    EXPECT_EQ(kept->Value().Int(), 1);
}

TEST_F(Store, CountsWhereverTheVariableStands) {
    const otxns::Name local("local"), global("global"), text("text"), nobody("nobody");
    vars.newStack();
    vars.push("p");
    vars.DeclareInteger(local, 1);
    vars.Declare(text, COtxString("1"));
    vars.Globals().Add("global", cell(2));
    long long number = 0;
    EXPECT_TRUE(vars.GetInteger(local, number));
    EXPECT_EQ(number, 1);
    for (const otxns::Name* other : {&global, &text, &nobody}) EXPECT_FALSE(vars.GetInteger(*other, number));
    vars.SetInteger(local, 5);
    vars.SetInteger(global, 6);
    vars.SetInteger(text, 7);
    EXPECT_EQ(vars.Get(local).Int(), 5);
    EXPECT_EQ(vars.Get(global).Int(), 6);
    EXPECT_EQ(vars.Get(text).Int(), 7);
    EXPECT_EQ(raised([&] { vars.SetInteger(nobody, 1); }), "1 nobody");
    const auto bound = std::make_shared<OtxContextVariable>(COtxInt(3));
    vars.Bind("local", bound);
    EXPECT_EQ(raised([&] { vars.SetInteger(local, 1); }), "1 Cannot set a context variable");
}

TEST(Scope, KeepsTheFirstCellOfAName) {
    OtxVarMap scope;
    scope.Add("v", cell(1));
    scope.Add("v", cell(2));
    COtxValue value;
    EXPECT_TRUE(scope.Get("v", value));
    EXPECT_EQ(value.Int(), 1);
}

TEST(Scope, TellsWhetherTheNameIsThere) {
    OtxVarMap scope;
    COtxValue value;
    EXPECT_FALSE(scope.Set("v", COtxInt(1)));
    EXPECT_FALSE(scope.Bind("v", cell(1)));
    EXPECT_FALSE(scope.Get("v", value));
    scope.Add("v", emptyCell());
    EXPECT_FALSE(scope.Get("v", value));
    EXPECT_TRUE(scope.Set("v", COtxInt(1)));
    EXPECT_TRUE(scope.Get("v", value));
    EXPECT_TRUE(scope.Bind("v", cell(3)));
    EXPECT_TRUE(scope.Get("v", value));
    EXPECT_EQ(value.Int(), 3);
}

TEST(Scope, IsCopiedWithItsCells) {
    OtxVarMap scope;
    scope.Add("v", cell(1));
    OtxVarMap copy(scope);
    EXPECT_EQ(copy.Find("v"), scope.Find("v"));
    copy.Add("w", cell(2));
    EXPECT_EQ(scope.Find("w"), nullptr);
    const auto snapshot = scope.Snapshot();
    scope.Add("x", cell(3));
    EXPECT_EQ(snapshot.size(), 1U);
}

TEST(Scope, AddsTwoVirtualOperations) {
    expectOrder(3, static_cast<bool (OtxVarMap::*)(const otxns::Name&, const COtxValue&)>(&OtxVarMap::Set),
                static_cast<bool (OtxVarMap::*)(const otxns::Name&, const std::shared_ptr<OtxVariable>&)>(&OtxVarMap::Bind));
}

TEST(ContextScope, RefusesEveryChange) {
    OtxContextVarMap scope;
    scope.Add("v", cell(1));
    const std::string refusal = "1 Setting of context variables is disallowed";
    EXPECT_EQ(raised([&] { scope.Set("v", COtxInt(2)); }), refusal);
    EXPECT_EQ(raised([&] { scope.Set("w", COtxInt(2)); }), refusal);
    EXPECT_EQ(raised([&] { scope.Bind("v", cell(2)); }), refusal);
    OtxVarMap& base = scope;
    EXPECT_EQ(raised([&] { base.Set("v", COtxInt(2)); }), refusal);
    EXPECT_EQ(scope.Value(otxns::Name("v")).Int(), 1);
}

TEST(ContextVariable, KeepsItsValue) {
    OtxContextVariable variable(COtxInt(1));
    EXPECT_EQ(raised([&] { variable.Set(COtxInt(2)); }), "1 Cannot set a context variable");
    OtxVariable& base = variable;
    EXPECT_EQ(raised([&] { base = COtxInt(2); }), "1 Cannot set a context variable");
    EXPECT_EQ(variable.Get().Int(), 1);
}

}  // namespace
