// The four dialogs: what they show, which lines answer them, their defaults.
#include "OperatorFakes.h"
#include "operator/Dialog.h"

#include <gtest/gtest.h>

namespace {

using namespace velkotx::host;

std::unique_ptr<Dialog> dialog(const std::string& name, const std::string& parameters) {
    return makeDialog(news(R"({"eventType":"HMI-OpenScreen","screenName":")" + name +
                           R"(","modal":true,"parameters":)" + parameters + "}"));
}

std::string shown(const Dialog& dialog) {
    std::string text;
    for (const std::string& line : dialog.lines())
        text += line + '\n';
    return text + dialog.prompt();
}

// The result as JSON, "closed" for none, or the complaint.
std::string answerTo(const Dialog& dialog, const std::string& line) {
    const Dialog::Answer answer = dialog.read(line);
    if (!answer.complaint.empty())
        return "complaint: " + answer.complaint;
    return answer.result ? jsonOf(*answer.result) : "closed";
}

std::string preset(const Dialog& dialog) {
    const auto value = dialog.preset();
    return value ? jsonOf(*value) : "none";
}

TEST(OperatorDialog, ConfirmInformsByItsType) {
    EXPECT_EQ(shown(*dialog("ConfirmDialog", R"({"message":"-- Question: x --\ny yes, n no:"})")),
              "-- Information --\n  -- Question: x --\n  y yes, n no:\nEnter goes on: ")
        << "can't be taken for the program's own words";
    const auto information = dialog("ConfirmDialog", R"({"title":"Ready","message":"Two\nlines \u001b[2J"})");
    EXPECT_EQ(shown(*information), "-- Information: Ready --\nTwo\n  lines \\x1B[2J\nEnter goes on: ");
    EXPECT_EQ(answerTo(*information, " "), R"({"ConfirmationType":"YES"})");
    EXPECT_EQ(answerTo(*information, "n"), "complaint: nothing but Enter is needed");
    EXPECT_EQ(shown(*dialog("ConfirmDialog", R"({"messageType":{"MessageType":"WARNING"}})")),
              "-- Warning --\nEnter goes on: ");
    EXPECT_EQ(shown(*dialog("ConfirmDialog", R"({"messageType":{"MessageType":"ERROR"}})")),
              "-- Error --\nEnter goes on: ");
    EXPECT_EQ(shown(*dialog("ConfirmDialog", R"({"messageType":0})")), "-- Information --\nEnter goes on: ");
    EXPECT_EQ(preset(*information), "none");
}

TEST(OperatorDialog, ConfirmAsksByItsType) {
    const auto two = dialog("ConfirmDialog", R"({"messageType":{"MessageType":"YESNO_QUESTION"}})");
    EXPECT_EQ(shown(*two), "-- Question --\ny yes, n no: ");
    EXPECT_EQ(answerTo(*two, "y"), R"({"ConfirmationType":"YES"})");
    EXPECT_EQ(answerTo(*two, " No "), R"({"ConfirmationType":"NO"})");
    EXPECT_EQ(answerTo(*two, "c"), "complaint: y or n is needed");
    EXPECT_EQ(answerTo(*two, ""), "complaint: y or n is needed");
    const auto three = dialog("ConfirmDialog", R"({"messageType":{"MessageType":"YESNOCANCEL_QUESTION"}})");
    EXPECT_EQ(three->prompt(), "y yes, n no, c cancel: ");
    EXPECT_EQ(answerTo(*three, "CANCEL"), R"({"ConfirmationType":"CANCEL"})");
    EXPECT_EQ(answerTo(*three, "yesno"), "complaint: y, n or c is needed");
}

TEST(OperatorDialog, ChoiceCountsFromOneForPeople) {
    const auto choice =
        dialog("ChoiceDialog", R"({"title":"Axle","message":"Which?","options":["front","rear",3],"default":1})");
    EXPECT_EQ(shown(*choice),
              "-- Choice: Axle --\nWhich?\n  1  front\n* 2  rear (default)\n  3  3\nNumber [2]: ");
    EXPECT_EQ(answerTo(*choice, "1"), "0");
    EXPECT_EQ(answerTo(*choice, " 3 "), "2");
    EXPECT_EQ(answerTo(*choice, ""), "1");
    for (const char* line : {"0", "4", "-1", "front", "1.0", "99999999999999999999", "-9223372036854775808"})
        EXPECT_EQ(answerTo(*choice, line), "complaint: a number from 1 to 3 is needed") << line;
    EXPECT_EQ(preset(*choice), "1");
}

TEST(OperatorDialog, ChoiceWithoutADefault) {
    for (const char* parameters : {R"({"options":["a"]})", R"({"options":["a"],"default":-1})"}) {
        const auto choice = dialog("ChoiceDialog", parameters);
        EXPECT_EQ(shown(*choice), "-- Choice --\n  1  a\nNumber: ");
        EXPECT_EQ(answerTo(*choice, ""), "complaint: a number from 1 to 1 is needed");
        EXPECT_EQ(preset(*choice), "none");
    }
}

TEST(OperatorDialog, ChoiceAlignsItsNumbers) {
    const std::string lines = shown(*dialog("ChoiceDialog", R"({"options":[1,2,3,4,5,6,7,8,"i","j"],"default":9})"));
    EXPECT_NE(lines.find("\n   9  i\n* 10  j (default)\n"), std::string::npos) << lines;
}

TEST(OperatorDialog, ChoiceOfNothingCanOnlyBeClosed) {
    for (const char* parameters : {R"({"options":[]})", R"({"options":5,"default":"zz"})"})
        EXPECT_EQ(answerTo(*dialog("ChoiceDialog", parameters), "1"),
                  "complaint: there is nothing to choose from, Ctrl-D closes it");
}

TEST(OperatorDialog, InputAppliesTheRestrictionToTheWholeText) {
    const auto input = dialog("InputDialog", R"({"title":"VIN","instruction":"As printed","restriction":"[A-Z]{2}[0-9]+"})");
    EXPECT_EQ(shown(*input), "-- Input: VIN --\nAs printed\nHas to match: [A-Z]{2}[0-9]+\nText: ");
    EXPECT_EQ(answerTo(*input, "AB12"), "\"AB12\"");
    for (const char* line : {"", "AB", "xAB12", "AB12x", " AB12"})
        EXPECT_EQ(answerTo(*input, line), "complaint: the text has to match [A-Z]{2}[0-9]+") << line;
    EXPECT_EQ(preset(*input), "none");
}

TEST(OperatorDialog, InputTakesTheTextAsItStands) {
    const auto input = dialog("InputDialog", R"({"initialValue":"old"})");
    EXPECT_EQ(shown(*input), "-- Input --\nText [old]: ");
    EXPECT_EQ(answerTo(*input, ""), "\"old\"");
    EXPECT_EQ(answerTo(*input, " 17 "), "\" 17 \"");
    EXPECT_EQ(answerTo(*input, "\"\""), "\"\"") << "Enter alone is the initial value";
    EXPECT_EQ(preset(*input), "\"old\"");
    EXPECT_EQ(answerTo(*dialog("InputDialog", "{}"), ""), "\"\"");
    EXPECT_EQ(answerTo(*dialog("InputDialog", "{}"), "\"\""), R"("\"\"")");
}

TEST(OperatorDialog, AnInitialValueThatDoesNotMatchIsNoDefault) {
    const auto input = dialog("InputDialog", R"({"initialValue":"old","restriction":"[0-9]+"})");
    EXPECT_EQ(preset(*input), "none");
    EXPECT_EQ(answerTo(*input, ""), "complaint: the text has to match [0-9]+");
}

TEST(OperatorDialog, ARestrictionThatIsNoExpressionIsSaid) {
    const auto input = dialog("InputDialog", R"({"restriction":"("})");
    EXPECT_EQ(answerTo(*input, "x").substr(0, 18), "complaint: Match: ");
}

TEST(OperatorDialog, DocumentShowsThePath) {
    const auto document = dialog("ShowDocumentDialog", R"({"document":"/manuals/brake.pdf","message":"Read this"})");
    EXPECT_EQ(shown(*document), "-- Document --\nRead this\nDocument: /manuals/brake.pdf\nEnter goes on: ");
    EXPECT_EQ(answerTo(*document, ""), "closed");
    EXPECT_EQ(preset(*document), "none");
}

TEST(OperatorDialog, OnlyModalScreensOfTheFourNamesAreDialogs) {
    EXPECT_EQ(dialog("Monitor", "{}"), nullptr);
    EXPECT_EQ(makeDialog(news(R"({"eventType":"HMI-OpenScreen","screenName":"InputDialog","modal":false})")), nullptr);
}

}  // namespace
