// How a stream is told apart as XML or compiled form.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"

#include <gtest/gtest.h>

#include <ios>
#include <istream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace api;

const std::string good = document(procedure("main", "", integer("outParam", "o", 5)));

std::string failureOf(const std::string& text) {
    try {
        load(text);
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return "loaded";
}

void expectLoads(std::istream& stream) {
    const auto sequencer = velkotx::CreateSequencer(stream);
    const auto host = std::make_shared<StopHost>();
    sequencer->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":5})");
}

#define EXPECT_BEGINS(text, beginning) \
    EXPECT_TRUE(std::string(text).starts_with(beginning)) << (text)

TEST(Stream, BeginsWithTheXmlDeclaration) {
    std::istringstream stream(good);
    expectLoads(stream);
}

TEST(Stream, MayHaveBlanksInFront) {
    std::istringstream stream(" \n\t\r\n " + good);
    expectLoads(stream);
}

TEST(Stream, IsReadAsXmlFromWhereItStands) {
    std::istringstream stream("something else " + good);
    stream.seekg(15);
    expectLoads(stream);
}

TEST(Stream, AcceptsAnyWhiteSpaceBehindTheWord) {
    std::string text = good;
    text.replace(5, 1, "\n");
    std::istringstream stream(text);
    expectLoads(stream);
}

TEST(Stream, WithALongerFirstWordIsCompiledForm) {
    std::string text = good;
    text.replace(5, 1, "x ");
    EXPECT_BEGINS(failureOf(text), "VelkOTX CDR Parsing Exception: ");
}

TEST(Stream, WithAShorterFirstWordIsCompiledForm) {
    EXPECT_BEGINS(failureOf("<?xm l"), "VelkOTX CDR Parsing Exception: ");
    EXPECT_BEGINS(failureOf(good.substr(good.find("<otx"))), "VelkOTX CDR Parsing Exception: ");
}

TEST(Stream, InCapitalsIsCompiledForm) {
    std::string text = good;
    text.replace(2, 3, "XML");
    EXPECT_BEGINS(failureOf(text), "VelkOTX CDR Parsing Exception: ");
}

TEST(Stream, WithAByteOrderMarkIsCompiledForm) {
    EXPECT_BEGINS(failureOf("\xEF\xBB\xBF" + good), "VelkOTX CDR Parsing Exception: ");
}

TEST(Stream, ThatIsEmptyIsCompiledForm) {
    EXPECT_BEGINS(failureOf(""), "VelkOTX CDR Parsing Exception: ");
    EXPECT_BEGINS(failureOf(" \n "), "VelkOTX CDR Parsing Exception: ");
}

TEST(Stream, WithNothingButTheWordIsXml) {
    EXPECT_BEGINS(failureOf("<?xml"), "VelkOTX XML Parsing Exception: ");
    EXPECT_BEGINS(failureOf("<?xml "), "VelkOTX XML Parsing Exception: ");
}

TEST(Stream, ThatBreaksOffIsXml) {
    EXPECT_BEGINS(failureOf(good.substr(0, good.size() / 2)), "VelkOTX XML Parsing Exception: ");
}

TEST(Stream, InTheCompiledFormIsReadFromItsBeginning) {
    std::ostringstream saved;
    load(good)->Save(saved);
    std::istringstream stream(saved.str());
    stream.seekg(9);
    expectLoads(stream);
}

TEST(Stream, ThatTakesNothingFailsTheSaving) {
    const auto sequencer = load(good);
    const auto saving = [&sequencer](std::ostream& out) {
        try {
            sequencer->Save(out);
            return std::string("saved");
        } catch (const std::runtime_error& error) {
            return std::string(error.what());
        }
    };
    const std::string refused = "VelkOTX CDR Saving Exception: ACE CDR stream insertion operation failed";
    std::ostringstream bad;
    bad.setstate(std::ios::badbit);
    EXPECT_EQ(saving(bad), refused);
    std::ostream nowhere(nullptr);
    EXPECT_EQ(saving(nowhere), refused);
    std::ostringstream taking;
    EXPECT_EQ(saving(taking), "saved");
}

TEST(Stream, IsNotKept) {
    std::shared_ptr<velkotx::Sequencer> sequencer;
    {
        std::istringstream stream(good);
        sequencer = velkotx::CreateSequencer(stream);
    }
    const auto host = std::make_shared<StopHost>();
    sequencer->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":5})");
}

TEST(Stream, ThatCannotBeReadLeavesLoadingPossible) {
    for (int round = 0; round < 20; ++round) {
        EXPECT_NE(failureOf("<?xml version=\"1.0\"?><wrong/>"), "loaded");
        EXPECT_NE(failureOf("nothing"), "loaded");
    }
    EXPECT_EQ(failureOf(good), "loaded");
}

struct Broken : std::ios_base::failure {
    Broken() : failure("broken") {}
};

// Fails behind the end of its text.
class BreakingBuffer : public std::stringbuf {
public:
    explicit BreakingBuffer(const std::string& text) : std::stringbuf(text, std::ios::in) {}

protected:
    int_type underflow() override { throw Broken(); }
};

TEST(Stream, ThatThrowsIsHeardAsItIsForXmlAndAsAFailureOfTheCompiledForm) {
    const auto loading = [](const std::string& text) -> std::string {
        BreakingBuffer buffer(text);
        std::istream stream(&buffer);
        stream.exceptions(std::ios::badbit);
        try {
            velkotx::CreateSequencer(stream);
        } catch (const Broken&) {
            return "broken";
        } catch (const std::exception& failure) {
            return failure.what();
        }
        return "loaded";
    };
    EXPECT_EQ(loading(good.substr(0, good.size() / 2)), "broken");
    EXPECT_BEGINS(loading("no document at all"), "VelkOTX CDR Parsing Exception: broken");
}

}  // namespace
