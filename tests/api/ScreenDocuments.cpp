// Texts of nodes and declarations for documents with screens and dialogs.
#include "ScreenDocuments.h"

#include "LaneDocuments.h"

namespace api {

namespace {

constexpr const char* modules = " xmlns:h=\"http://iso.org/OTX/1.0.0/HMI\" xmlns:e=\"http://iso.org/OTX/1.0.0/Event\"";

std::string action(const std::string& id, const std::string& realisationType, const std::string& attributes,
                   const std::string& content) {
    return "<action id=\"" + id + "\"><realisation" + modules + " xsi:type=\"" + realisationType + "\"" +
           attributes + ">" + content + "</realisation></action>";
}

std::string of(const std::string& handle) { return "<h:screen name=\"" + handle + "\"/>"; }

}  // namespace

std::string openScreen(const std::string& id, const std::string& screen, const std::vector<ScreenArgument>& arguments,
                       bool modal) {
    std::string content;
    for (const char* const group : {"inoutArg", "outArg", "inArg"}) {
        for (const ScreenArgument& one : arguments) {
            if (one.group != group) continue;
            content += "<h:" + one.group + " param=\"" + one.parameter + "\"><h:variable xsi:type=\"" + one.type +
                       "Variable\" name=\"" + one.variable + "\"/></h:" + one.group + ">";
        }
    }
    if (!content.empty()) content = "<h:arguments>" + content + "</h:arguments>";
    return action(id, "h:OpenScreen", " screen=\"" + screen + "\"" + (modal ? " modal=\"true\"" : ""), content);
}

std::string closeScreen(const std::string& id, const std::string& handle) {
    return action(id, "h:CloseScreen", "", of(handle));
}

std::string highlightScreen(const std::string& id, const std::string& handle) {
    return action(id, "h:HighlightScreen", "", of(handle));
}

std::string handleOf(const std::string& name, const std::string& screen) { return text("variable", name, screen); }

std::string inputDialog(const std::string& id, const std::string& result) {
    return action(id, "h:InputDialog", "", "<h:result name=\"" + result + "\"/>");
}

std::string text(const std::string& element, const std::string& name, const std::string& value) {
    return declared(element, name, "String\"><init value=\"" + value + "\"/>");
}

std::string assignTerm(const std::string& id, const std::string& variableType, const std::string& target,
                       const std::string& term) {
    return action(id, "Assignment", "",
                  "<result xsi:type=\"" + variableType + "\" name=\"" + target + "\"/><term xsi:type=\"" + term + "</term>");
}

}  // namespace api
