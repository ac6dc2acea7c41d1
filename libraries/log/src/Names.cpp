// Names of classes and functions in the form that the trace shows.
#include <otx/log/Names.h>

#include <cxxabi.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace Hvt {

namespace {

constexpr std::string_view anonymous = "(anonymous namespace)";

// What the template parameters of a function stand for.
struct Binding {
    std::string value;
    bool isType = true;
};
using Bindings = std::map<std::string, Binding, std::less<>>;

bool isIdentifier(char character) { return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}


// The place after the bracket that closes the one at `begin`; the end of the text if none does.
std::size_t afterBracket(std::string_view text, std::size_t begin) {
    int depth = 0;
    for (std::size_t place = begin; place < text.size(); ++place) {
        const bool isArrow = text[place] == '>' && place > 0 && text[place - 1] == '-';
        if (std::string_view("<([{").find(text[place]) != std::string_view::npos) ++depth;
        if (std::string_view(">)]}").find(text[place]) != std::string_view::npos && !isArrow && --depth == 0)
            return place + 1;
    }
    return text.size();
}

// The parts between separators that stand in no brackets.
std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    std::size_t begin = 0;
    for (std::size_t place = 0; place < text.size();) {
        if (std::string_view("<([{").find(text[place]) != std::string_view::npos) {
            place = afterBracket(text, place);
            continue;
        }
        if (text[place] == separator) {
            parts.push_back(trimmed(text.substr(begin, place - begin)));
            begin = place + 1;
        }
        ++place;
    }
    parts.push_back(trimmed(text.substr(begin)));
    return parts;
}

bool isClass(std::string_view type) {
    constexpr std::array<std::string_view, 20> others{
        "void",     "bool",    "char",     "short",    "int",     "long", "unsigned", "signed",  "float", "double",
        "wchar_t",  "char8_t", "char16_t", "char32_t", "__int128", "auto", "decltype", "nullptr", "true",  "false"};
    if (type.starts_with(anonymous)) return true;
    const auto end = std::find_if_not(type.begin(), type.end(), isIdentifier);
    const std::string_view first(type.begin(), end);
    return !first.empty() && std::isdigit(static_cast<unsigned char>(first.front())) == 0 &&
           std::find(others.begin(), others.end(), first) == others.end();
}

std::string typeForm(std::string_view type, const Bindings& bindings);

// "<...>" with each argument in its form.
std::string argumentsForm(std::string_view arguments, const Bindings& bindings) {
    std::string result = "<";
    for (const std::string_view argument : split(arguments.substr(1, arguments.size() - 2), ',')) {
        if (result.size() > 1) result += ',';
        result += typeForm(argument, bindings);
    }
    return result += result.back() == '>' ? " >" : ">";
}

std::string typeForm(std::string_view type, const Bindings& bindings) {
    if (const auto bound = bindings.find(type); bound != bindings.end())
        return bound->second.isType ? typeForm(bound->second.value, {}) : bound->second.value;
    constexpr std::string_view constant = "const ";
    if (type.starts_with(constant)) return std::string(constant) + typeForm(type.substr(constant.size()), bindings);
    std::string result = isClass(type) ? "class " : "";
    for (std::size_t place = 0; place < type.size();) {
        const std::size_t end = type[place] == '<' ? afterBracket(type, place) : place + 1;
        result += type[place] == '<' ? argumentsForm(type.substr(place, end - place), bindings)
                                     : std::string(type.substr(place, 1));
        place = end;
    }
    return result;
}

// Cuts "[with A = int; B = x]" or "[A = int, B = x]" off the end.
Bindings takeBindings(std::string_view& function) {
    constexpr std::string_view with = "with ";
    Bindings bindings;
    const std::size_t begin = function.rfind(" [with ") != std::string_view::npos ? function.rfind(" [with ")
                                                                                  : function.rfind(" [");
    if (!function.ends_with(']') || begin == std::string_view::npos) return bindings;
    std::string_view list = function.substr(begin + 2, function.size() - begin - 3);
    const bool saysWith = list.starts_with(with);
    if (saysWith) list.remove_prefix(with.size());
    for (const std::string_view part : split(list, saysWith ? ';' : ',')) {
        const std::size_t equals = part.find(" = ");
        if (equals == std::string_view::npos) continue;
        const std::string_view name = part.substr(0, equals);
        // "int N": a parameter that is no type has its own type in front.
        const std::size_t blank = name.rfind(' ');
        bindings[std::string(blank == std::string_view::npos ? name : name.substr(blank + 1))] = {
            std::string(part.substr(equals + 3)), blank == std::string_view::npos};
    }
    function = function.substr(0, begin);
    return bindings;
}

// Goes through a function's declaration and keeps its qualified name.
class FunctionName {
public:
    FunctionName(std::string_view text, const Bindings& bindings) : text_(text), bindings_(bindings) {}

    std::string read() {
        while (place_ < text_.size()) {
            if (takeOperator() || takeAnonymous() || takeLambda()) continue;
            const char character = text_[place_];
            if (character == '(')
                takeParentheses();
            else if (character == '<')
                takeArguments();
            else if (character == ' ')
                takeBlank();
            else
                name_ += text_[place_++];
        }
        name_.erase(0, name_.find_first_not_of("*&"));
        return name_;
    }

private:
    bool follows(std::string_view word) const { return text_.substr(place_).starts_with(word); }

    bool takeOperator() {
        constexpr std::string_view word = "operator";
        if (!follows(word) || (place_ > 0 && isIdentifier(text_[place_ - 1]))) return false;
        std::size_t end = place_ + word.size();
        if (end < text_.size() && isIdentifier(text_[end])) return false;
        // What follows up to its parameters, the first of which may be the operator () itself.
        end = text_.find('(', text_.substr(end).starts_with("()") ? end + 1 : end);
        end = std::min(end, text_.size());
        const bool ofLambda = name_.ends_with("<lambda>::");
        if (ofLambda)
            name_.resize(name_.size() - 2);
        else
            name_ += text_.substr(place_, end - place_);
        place_ = end;
        return true;
    }

    bool takeAnonymous() {
        for (const std::string_view form : {anonymous, std::string_view("{anonymous}")}) {
            if (!follows(form)) continue;
            name_ += anonymous;
            place_ += form.size();
            return true;
        }
        return false;
    }

    bool takeLambda() {
        constexpr std::string_view anonymousClass = "(anonymous class)";
        const bool isClassForm = follows(anonymousClass);
        if (!isClassForm && !follows("<lambda")) return false;
        name_ += "<lambda>";
        place_ = isClassForm ? place_ + anonymousClass.size() : afterBracket(text_, place_);
        return true;
    }

    void takeParentheses() {
        // A function that returns a pointer to a function stands within the pointer's parentheses.
        if (place_ + 1 < text_.size() && (text_[place_ + 1] == '*' || text_[place_ + 1] == '&')) {
            text_ = text_.substr(place_ + 1, afterBracket(text_, place_) - place_ - 2);
            place_ = 0;
            name_.clear();
            return;
        }
        place_ = afterBracket(text_, place_);
        for (const std::string_view qualifier : {" const", " volatile", " &&", " &", " noexcept"}) {
            if (follows(qualifier)) place_ += qualifier.size();
        }
    }

    void takeArguments() {
        const std::size_t end = afterBracket(text_, place_);
        name_ += argumentsForm(text_.substr(place_, end - place_), bindings_);
        place_ = end;
    }

    // What stood before a blank was the result's type or a specifier.
    void takeBlank() {
        name_.clear();
        ++place_;
    }

    std::string_view text_;
    const Bindings& bindings_;
    std::size_t place_ = 0;
    std::string name_;
};

}  // namespace

std::string className(const char* rawName) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled(
        abi::__cxa_demangle(rawName, nullptr, nullptr, &status), &std::free);
    return typeForm(status == 0 ? demangled.get() : rawName, {});
}

std::string functionName(const char* prettyFunction) {
    std::string_view function = prettyFunction;
    const Bindings bindings = takeBindings(function);
    return FunctionName(function, bindings).read();
}

}  // namespace Hvt
