// What a document in XML that can't be loaded tells about its failure: the words, the place, a suggestion.
#include "Documents.h"

#include <velkotx/DocumentException.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <istream>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using namespace api;

struct Failure {
    std::string what;
    std::pair<std::size_t, std::size_t> place;
    std::string suggestion;
};

Failure failureOf(std::istream& stream) {
    try {
        velkotx::CreateSequencer(stream);
    } catch (const velkotx::DocumentException& failure) {
        return {failure.what(), {failure.line(), failure.column()}, failure.suggestion()};
    }
    return {"loaded", {0, 0}, {}};
}

Failure failureOf(const std::string& text) {
    std::istringstream stream(text);
    return failureOf(stream);
}

using Place = std::pair<std::size_t, std::size_t>;

constexpr Place unknown{0, 0};

// Where the text says "^": the mark is taken out before the document is loaded.
struct Marked {
    explicit Marked(std::string marked) : text(std::move(marked)) {
        const std::size_t at = text.find('^');
        text.erase(at, 1);
        const std::size_t line = text.rfind('\n', at);
        place = {1 + static_cast<std::size_t>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n')),
                 at - line};
    }

    std::string text;
    Place place;
};

std::string inFlow(const std::string& nodes) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<otx xmlns="http://iso.org/OTX/1.0.0" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
     xmlns:h="http://iso.org/OTX/1.0.0/HMI" id="o" name="x" package="p" version="1" timestamp="2026-01-15T10:00:00">
<procedures><procedure id="p" name="main"><realisation><flow>)" +
           nodes + "</flow></realisation></procedure></procedures></otx>\n";
}

std::string assignment(const std::string& realisation) {
    return inFlow("\n  <action id=\"a\">\n    " + realisation + "\n  </action>\n");
}

const std::string result = R"(<result xsi:type="IntegerVariable" name="r"/>)";
const std::string prefix = "VelkOTX XML Parsing Exception: ";
const std::string withUnknownType = assignment(R"(<realisation xsi:type="Asignment"/>)");
const std::string unknownType = prefix + "no type information available for type 'http://iso.org/OTX/1.0.0#Asignment'";

TEST(LoadFailure, AnUnknownTypeIsWhereItsElementBegins) {
    const Failure failure = failureOf(withUnknownType);
    EXPECT_EQ(failure.what, unknownType);
    EXPECT_EQ(failure.place, Place(6, 5));
    EXPECT_EQ(failure.suggestion, "Assignment");
}

TEST(LoadFailure, IsARuntimeErrorToHostsThatKnowNoMore) {
    std::istringstream stream(withUnknownType);
    EXPECT_THROW(velkotx::CreateSequencer(stream), std::runtime_error);
}

TEST(LoadFailure, AMisspeltAttributeIsWhereItsElementBegins) {
    const Marked document(assignment("<realisation xsi:type=\"Assignment\">" + result +
                                     "^<term xsi:type=\"IntegerValue\"\n\n valueof=\"r\"/></realisation>"));
    const Failure failure = failureOf(document.text);
    EXPECT_EQ(failure.what, prefix + "expected attribute 'valueOf'");
    EXPECT_EQ(failure.place, document.place);
    EXPECT_EQ(failure.suggestion, "");
}

TEST(LoadFailure, AMisspeltElementIsItself) {
    const Marked document(assignment("<realisation xsi:type=\"Assignment\">" + result +
                                     "^<terme xsi:type=\"IntegerLiteral\" value=\"1\"/></realisation>"));
    const Failure failure = failureOf(document.text);
    EXPECT_EQ(failure.what, prefix + "expected element 'http://iso.org/OTX/1.0.0#term'");
    EXPECT_EQ(failure.place, document.place);
}

TEST(LoadFailure, AnElementThatIsMissingAltogetherIsWhereItsOwnerBegins) {
    const Marked document(assignment("^<realisation xsi:type=\"Assignment\">" + result + "</realisation>"));
    EXPECT_EQ(failureOf(document.text).place, document.place);
}

TEST(LoadFailure, AValueIsWhereItsElementBegins) {
    const Marked document(assignment("<realisation xsi:type=\"Assignment\">" + result +
                                     "\n^<term xsi:type=\"IntegerLiteral\" value=\"one\"/></realisation>"));
    EXPECT_EQ(failureOf(document.text).place, document.place);
}

TEST(LoadFailure, TheRootHasAPlaceToo) {
    EXPECT_EQ(failureOf("<?xml version=\"1.0\"?>\n<!-- a -->\n  <sequence/>").place, Place(3, 3));
    EXPECT_EQ(failureOf("<?xml version=\"1.0\"?><sequence/>").place, Place(1, 22));
}

TEST(LoadFailure, WhateverStandsAheadIsCounted) {
    const Marked document(inFlow("<!-- <action/> -->\n<?go <on/> ?>\r\n<action id=\"&lt;1&#10;&gt;\"><specification>"
                                 "<![CDATA[<action/>\n]]>&amp;\n</specification></action><action id=\"b\"\n/>\t^<action/>"));
    const Failure failure = failureOf(document.text);
    EXPECT_EQ(failure.what, prefix + "expected attribute 'id'");
    EXPECT_EQ(failure.place, document.place);
}

TEST(LoadFailure, ColumnsCountCharactersAndNotBytes) {
    const std::string line = "<action id=\"a\" name=\"\xC3\xA4\xE2\x82\xAC\"/>";
    EXPECT_EQ(failureOf(inFlow("\n" + line + "<action/>")).place, Place(5, line.size() - 3 + 1));
}

TEST(LoadFailure, ADocumentThatIsntWellFormedHasThePlaceOfItsWords) {
    const Failure failure = failureOf(inFlow("\n<action>"));
    EXPECT_EQ(failure.what, prefix + ":5:11 error: expected end of tag 'action'");
    EXPECT_EQ(failure.place, Place(5, 11));
}

TEST(LoadFailure, LinesCountFromTheDeclaration) {
    std::istringstream stream("other bytes\n\n \n" + withUnknownType);
    stream.seekg(11);
    const Failure failure = failureOf(stream);
    EXPECT_EQ(failure.what, unknownType);
    EXPECT_EQ(failure.place, Place(6, 5));
}

TEST(LoadFailure, TheStreamIsAtItsEndAllTheSame) {
    std::istringstream stream(withUnknownType);
    failureOf(stream);
    EXPECT_TRUE(stream.eof());
    stream.clear();
    EXPECT_EQ(stream.tellg(), std::istream::pos_type(static_cast<std::streamoff>(withUnknownType.size())));
}

TEST(LoadFailure, ATypeOfAnotherModuleIsSuggestedByItsFullName) {
    const auto suggestionFor = [](const std::string& type) {
        return failureOf(assignment("<realisation xsi:type=\"" + type + "\"/>")).suggestion;
    };
    EXPECT_EQ(suggestionFor("h:Assignment"), "http://iso.org/OTX/1.0.0#Assignment");
    EXPECT_EQ(suggestionFor("ConfirmDialog"), "http://iso.org/OTX/1.0.0/HMI#ConfirmDialog");
    EXPECT_EQ(suggestionFor("h:confirmdialog"), "ConfirmDialog");
    EXPECT_EQ(suggestionFor("Teleport"), "");
    EXPECT_EQ(suggestionFor("Term"), "");
    EXPECT_EQ(suggestionFor(std::string(100000, 'A')), "");
}

// A text that isn't the same any more when it is to be read for the second time.
class FickleText : public std::stringbuf {
public:
    FickleText(const std::string& text, std::function<bool(FickleText&)> change)
        : std::stringbuf(text), change_(std::move(change)) {}

protected:
    // The first call brings the stream back to the first word.
    pos_type seekpos(pos_type position, std::ios::openmode which) override {
        if (++calls_ == 2 && !change_(*this)) return pos_type(-1);
        return std::stringbuf::seekpos(position, which);
    }

private:
    std::function<bool(FickleText&)> change_;
    int calls_ = 0;
};

Failure failureOfFickle(const std::function<bool(FickleText&)>& change) {
    bool isChanged = false;
    FickleText text(withUnknownType, [&](FickleText& changing) {
        isChanged = true;
        return change(changing);
    });
    std::istream stream(&text);
    const Failure failure = failureOf(stream);
    EXPECT_TRUE(isChanged);
    EXPECT_EQ(failure.what, unknownType);
    EXPECT_EQ(failure.suggestion, "Assignment");
    return failure;
}

TEST(LoadFailure, AStreamThatStaysAsItIsHasThePlace) {
    EXPECT_EQ(failureOfFickle([](FickleText&) { return true; }).place, Place(6, 5));
}

TEST(LoadFailure, AStreamThatGoesBackOnlyOnceHasNoPlace) {
    EXPECT_EQ(failureOfFickle([](FickleText&) { return false; }).place, unknown);
}

TEST(LoadFailure, OtherBytesHaveNoPlace) {
    for (const char* other : {"", "<?xml version=\"1.0\"?><otx/>", "<?xml version=\"1.0\"?><otx><a/><b/><c/><d/><e/><f/><g/></otx>",
                              "<?xml version=\"1.0\"?><otx", "no XML",
                              "<?xml version=\"1.0\"?><!DOCTYPE otx [<!ENTITY x \"y\">]><otx>&x;&x;</otx>"})
        EXPECT_EQ(failureOfFickle([other](FickleText& text) {
                      text.str(other);
                      return true;
                  }).place,
                  unknown)
            << other;
}

TEST(LoadFailure, WhateverFailsWhenReadingAgainLeavesTheFailure) {
    const auto fail = [](FickleText&) -> bool { throw std::bad_alloc(); };
    EXPECT_EQ(failureOfFickle(fail).place, unknown);
}

}  // namespace
