// What goes to which stream when a command ends.
#include "program/Report.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace {

using velkotx::host::Outcome;

struct Reported {
    explicit Reported(const Outcome& outcome, bool json = false) {
        std::istringstream in;
        std::ostringstream outStream;
        std::ostringstream errStream;
        status = velkotx::host::report(outcome, "doc.otx", json, {in, outStream, errStream});
        out = outStream.str();
        err = errStream.str();
    }

    int status;
    std::string out;
    std::string err;
};

Outcome finished(const std::map<const std::string, COtxValue>& parameters) {
    return {Outcome::Kind::finished, COtxMap(parameters), {}, {}};
}

TEST(Report, OutParametersAreOneLineEach) {
    const Reported reported(finished({{"a", COtxBool(true)}, {"b", COtxString("x\ny")}, {"c", COtxFloat(2.0)}}));
    EXPECT_EQ(reported.out, "a = TRUE\nb = x\\ny\nc = 2.0\n");
    EXPECT_EQ(reported.err, "");
    EXPECT_EQ(reported.status, 0);
}

TEST(Report, ADocumentsTextStaysOnOneLine) {
    const Reported reported({Outcome::Kind::exception, COtxValue(), "UserException", "one\ntwo\x1B[2J\n"});
    EXPECT_EQ(reported.out, "");
    EXPECT_EQ(reported.err, "doc.otx: uncaught UserException: one\\ntwo\\x1B[2J\n");
    EXPECT_EQ(reported.status, 1);
}

TEST(Report, AWhatWithItsOwnColonGetsNoSecondOne) {
    const Reported reported({Outcome::Kind::failed, COtxValue(), "InternalError: ", "Unimplemented Node: X"});
    EXPECT_EQ(reported.err, "doc.otx: InternalError: Unimplemented Node: X\n");
}

TEST(Report, AFailureWithoutTextIsItsWhat) {
    const Reported reported({Outcome::Kind::failed, COtxValue(), "HMI not initialised", ""});
    EXPECT_EQ(reported.err, "doc.otx: HMI not initialised\n");
    EXPECT_EQ(reported.status, 3);
}

TEST(Report, ThePlaceStandsBehindTheDocumentsName) {
    const Reported reported(
        {Outcome::Kind::unloadable, COtxValue(), "no type 'Asignment'", "", 12, 8, "did you mean 'Assignment'?"});
    EXPECT_EQ(reported.err, "doc.otx:12:8: no type 'Asignment' (did you mean 'Assignment'?)\n");
}

TEST(Report, APlaceInTheWordsIsntToldTwice) {
    const Reported reported({Outcome::Kind::unloadable, COtxValue(), "Exception: :4:17 error: expected", "", 4, 17, ""});
    EXPECT_EQ(reported.err, "doc.otx:4:17: Exception: expected\n");
}

TEST(Report, AFailureAsJsonKeepsItsLineForPeople) {
    const Reported reported({Outcome::Kind::cancelled, COtxValue(), "cancelled", ""}, true);
    EXPECT_EQ(reported.out, "{\"outcome\":\"cancelled\",\"what\":\"cancelled\",\"text\":\"\"}\n");
    EXPECT_EQ(reported.err, "doc.otx: cancelled\n");
    EXPECT_EQ(reported.status, 4);
}

TEST(Report, AValueThatContainsItselfIsAFailure) {
    const COtxValue list = COtxList();
    list.List().push_back(list);
    const Reported reported(finished({{"list", list}}), true);
    EXPECT_EQ(reported.status, 3);
    EXPECT_EQ(reported.out.substr(0, 28), "{\"outcome\":\"failed\",\"what\":\"");
    list.List().clear();
}

}  // namespace
