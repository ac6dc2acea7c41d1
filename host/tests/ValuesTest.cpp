// The values that a run is given on the command line and in files.
#include "program/Inputs.h"
#include "program/UsageError.h"
#include "program/Values.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace velkotx::host;

COtxValue argumentOf(const std::string& argument) {
    std::istringstream in;
    Inputs inputs(in);
    std::ostringstream err;
    const COtxValue arguments = readArguments(inputs, "", {argument}, err);
    EXPECT_EQ(arguments.Map().size(), 1U);
    EXPECT_EQ(arguments.Map().begin()->first, COtxString("name"));
    return arguments.Map().begin()->second;
}

std::string warningAbout(const std::string& argument) {
    std::istringstream in;
    Inputs inputs(in);
    std::ostringstream err;
    readArguments(inputs, "", {argument}, err);
    return err.str();
}

std::string complaintAbout(const std::string& file, const std::string& standardInput) {
    std::istringstream in(standardInput);
    Inputs inputs(in);
    try {
        readObject(inputs, file);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(Values, AnArgumentIsJson) {
    EXPECT_EQ(argumentOf("name=5").Type(), OTX::ValueType::Integer);
    EXPECT_EQ(argumentOf("name=5.0").Type(), OTX::ValueType::Float);
    EXPECT_EQ(argumentOf("name=true"), COtxBool(true));
    EXPECT_EQ(argumentOf("name=\"5\""), COtxString("5"));
    EXPECT_EQ(argumentOf("name=[1,2]").List().size(), 2U);
    EXPECT_EQ(argumentOf("name={\"ByteField\":\"0A\"}").Type(), OTX::ValueType::ByteField);
}

TEST(Values, AnArgumentThatIsNoJsonStandsForItself) {
    EXPECT_EQ(argumentOf("name=hello, world"), COtxString("hello, world"));
    EXPECT_EQ(argumentOf("name=007"), COtxString("007"));
    EXPECT_EQ(argumentOf("name=a=b"), COtxString("a=b"));
    EXPECT_EQ(argumentOf("name="), COtxString(""));
    EXPECT_EQ(argumentOf("name=[1,2"), COtxString("[1,2"));
}

TEST(Values, AnArgumentThatBeginsAsJsonIsWarnedOf) {
    EXPECT_EQ(warningAbout("name=[1,2"),
              "velkotx: --arg: 'name=[1,2' begins as JSON but isn't any, and is taken as a String\n");
    EXPECT_NE(warningAbout("name= {a}"), "");
    EXPECT_EQ(warningAbout("name=[1,2]"), "");
    EXPECT_EQ(warningAbout("name=\"[1,2\""), "");
    EXPECT_EQ(warningAbout("name=hello [1]"), "");
    EXPECT_EQ(warningAbout("name= "), "");
}

TEST(Values, AnArgumentNeedsAName) {
    std::istringstream in;
    Inputs inputs(in);
    std::ostringstream err;
    EXPECT_THROW(readArguments(inputs, "", {"=5"}, err), UsageError);
    EXPECT_THROW(readArguments(inputs, "", {"name"}, err), UsageError);
}

TEST(Values, TheCommandLineReplacesTheFile) {
    std::istringstream in("{\"a\": 1, \"b\": 2, \"c\": 3}");
    Inputs inputs(in);
    std::ostringstream err;
    const COtxValue arguments = readArguments(inputs, "-", {"b=20", "c=30", "c=40"}, err);
    EXPECT_EQ(arguments.ToJSON(), COtxString("{\"a\":1,\"b\":20,\"c\":40}"));
}

TEST(Values, NoFileIsAnEmptyObject) {
    std::istringstream in;
    Inputs inputs(in);
    EXPECT_EQ(readObject(inputs, ""), COtxMap());
}

TEST(Values, AFileHasToBeAnObject) {
    EXPECT_EQ(complaintAbout("-", "[]"), "<stdin>: a JSON object was expected");
    EXPECT_EQ(complaintAbout("-", "{}"), "");
    EXPECT_NE(complaintAbout("-", "{"), "");
    EXPECT_EQ(complaintAbout("-", "{\"Map\":[[1,2]]}"), "<stdin>: a JSON object was expected");
    EXPECT_EQ(complaintAbout("-", "{\"ByteField\":\"00\"}"), "<stdin>: a JSON object was expected");
    EXPECT_EQ(complaintAbout("nowhere.json", ""), "nowhere.json: No such file or directory");
    EXPECT_EQ(complaintAbout("/", ""), "/: Is a directory");
}

TEST(Values, StandardInputIsTakenOnce) {
    std::istringstream in("{}");
    Inputs inputs(in);
    readObject(inputs, "-");
    EXPECT_THROW(readObject(inputs, "-"), UsageError);
}

}  // namespace
