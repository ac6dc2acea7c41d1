// A dialog of a run as an operator at a terminal meets it.
#include "operator/Dialog.h"

#include "operator/DialogKinds.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <sstream>

namespace velkotx::host {

std::vector<std::string> Dialog::lines() const {
    const COtxValue* const found = find("title");
    const std::string title = found != nullptr ? lineOf(*found) : "";
    std::vector<std::string> lines{"-- " + heading() + (title.empty() ? "" : ": " + title) + " --"};
    append(lines, "message");
    describe(lines);
    return lines;
}

const COtxValue* Dialog::find(const std::string& parameter) const {
    const auto found = opening_.parameters.find(parameter);
    return found != opening_.parameters.end() ? &found->second : nullptr;
}

void Dialog::append(std::vector<std::string>& lines, const std::string& parameter) const {
    const COtxValue* const value = find(parameter);
    if (value == nullptr)
        return;
    std::stringstream text;
    text << *value;
    // Neither a second line nor one that looks like a heading can be taken for the program's own.
    bool isFirst = true;
    for (std::string line; std::getline(text, line); isFirst = false)
        lines.push_back((isFirst && !line.starts_with("-") ? "" : "  ") + oneLine(line));
}

std::unique_ptr<Dialog> makeDialog(const ScreenNews& opening) {
    if (!opening.modal)
        return nullptr;
    if (opening.screen == "ConfirmDialog")
        return makeConfirmDialog(opening);
    if (opening.screen == "ChoiceDialog")
        return makeChoiceDialog(opening);
    if (opening.screen == "InputDialog")
        return makeInputDialog(opening);
    if (opening.screen == "ShowDocumentDialog")
        return makeDocumentDialog(opening);
    return nullptr;
}

}  // namespace velkotx::host
