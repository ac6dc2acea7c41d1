// How whatever ends a run becomes an outcome, and an outcome JSON.
#include "FakeSequencer.h"
#include "program/Outcome.h"

#include <otx/value/Values.h>
#include <velkotx/LoopExceptions.h>

#include <gtest/gtest.h>

#include <map>

namespace {

using velkotx::host::Outcome;

template <class Exception>
Outcome outcomeOf(const Exception& exception) {
    FakeSequencer sequencer;
    sequencer.run = [&]() -> COtxValue { throw exception; };
    return velkotx::host::runProcedure(sequencer, "main", COtxMap());
}

template <class Exception>
std::string jsonOf(const Exception& exception) {
    return toJson(outcomeOf(exception));
}

TEST(Outcome, Finished) {
    FakeSequencer sequencer;
    sequencer.run = [] {
        const COtxByteField bytes(std::vector<unsigned char>{0x0A, 0x1B});
        bytes.SetOTXJSON(true);
        return COtxMap(std::map<const std::string, COtxValue>{{"bytes", bytes}, {"ByteField", COtxString("x")}});
    };
    const Outcome outcome = velkotx::host::runProcedure(sequencer, "main", COtxMap());
    EXPECT_EQ(toJson(outcome), R"({"outcome":"finished","out":{"ByteField":"x","bytes":{"ByteField":"0A1B"}}})");
    EXPECT_EQ(exitStatus(outcome.kind), 0);
}

TEST(Outcome, OtxException) {
    const velkotx::OTXSequenceException exception("UserException", "a \"text\"\nwith a break");
    EXPECT_EQ(jsonOf(exception),
              R"({"outcome":"exception","what":"UserException","text":"a \"text\"\nwith a break"})");
    EXPECT_EQ(exitStatus(outcomeOf(exception).kind), 1);
}

TEST(Outcome, RuntimeFailure) {
    const velkotx::OTXRuntimeException exception("InternalError", "Stack exhausted");
    EXPECT_EQ(jsonOf(exception), R"({"outcome":"failed","what":"InternalError","text":"Stack exhausted"})");
    EXPECT_EQ(exitStatus(outcomeOf(exception).kind), 3);
}

TEST(Outcome, Cancelled) {
    const velkotx::OTXRuntimeException exception("cancelled", "");
    EXPECT_EQ(jsonOf(exception), R"({"outcome":"cancelled","what":"cancelled","text":""})");
    EXPECT_EQ(exitStatus(outcomeOf(exception).kind), 4);
}

TEST(Outcome, LoopExceptionsThatLeaveTheRun) {
    EXPECT_EQ(jsonOf(velkotx::BreakException("outer")), R"({"outcome":"failed","what":"BreakException","text":"outer"})");
    EXPECT_EQ(jsonOf(velkotx::ContinueException("")), R"({"outcome":"failed","what":"ContinueException","text":""})");
}

TEST(Outcome, OtherExceptions) {
    EXPECT_EQ(jsonOf(std::runtime_error("the host's own")), R"({"outcome":"failed","what":"the host's own","text":""})");
    EXPECT_EQ(jsonOf(42), R"({"outcome":"failed","what":"unknown exception","text":""})");
}

TEST(Outcome, Unloadable) {
    const Outcome outcome{Outcome::Kind::unloadable, COtxValue(), "no document", {}};
    EXPECT_EQ(toJson(outcome), R"({"outcome":"unloadable","what":"no document","text":""})");
    EXPECT_EQ(exitStatus(outcome.kind), 2);
}

TEST(Outcome, UnloadableWithAPlace) {
    const Outcome outcome{Outcome::Kind::unloadable, COtxValue(), "no document", {}, 12, 8, "document"};
    EXPECT_EQ(toJson(outcome), R"({"outcome":"unloadable","what":"no document","text":"","line":12,"column":8})");
}

}  // namespace
