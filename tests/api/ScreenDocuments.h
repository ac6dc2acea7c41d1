// Texts of nodes and declarations for documents with screens and dialogs.
#pragma once

#include <string>
#include <vector>

namespace api {

// One parameter of a screen: its group (inArg, inoutArg, outArg), its name there, and the variable's type and name.
struct ScreenArgument {
    std::string group;
    std::string parameter;
    std::string variable;
    std::string type = "Integer";
};

// The arguments in the order inoutArg, outArg, inArg.
std::string openScreen(const std::string& id, const std::string& screen, const std::vector<ScreenArgument>& arguments = {},
                       bool modal = false);
// The screen that is named in a variable.
std::string closeScreen(const std::string& id, const std::string& handle);
std::string highlightScreen(const std::string& id, const std::string& handle);
// Declares such a variable.
std::string handleOf(const std::string& name, const std::string& screen);

// A dialog that asks for a text, and the variable for the answer.
std::string inputDialog(const std::string& id, const std::string& result);
std::string text(const std::string& element, const std::string& name, const std::string& value);

// Assigns a term of this type, given up to its end tag, such as "ListValue\" valueOf=\"l\">".
std::string assignTerm(const std::string& id, const std::string& variableType, const std::string& target,
                       const std::string& term);

}  // namespace api
