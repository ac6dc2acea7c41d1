// The line that somebody is typing.
#include "operator/LineEditor.h"

#include "text/Utf8.h"

#include <utility>

namespace velkotx::host {

namespace {

constexpr const char* bell = "\a";
constexpr const char* back = "\b \b";

constexpr unsigned char ctrlD = 0x04;
constexpr unsigned char backspace = 0x08;
constexpr unsigned char tabulator = 0x09;
constexpr unsigned char ctrlU = 0x15;
constexpr unsigned char ctrlW = 0x17;
constexpr unsigned char escape = 0x1B;
constexpr unsigned char blank = 0x20;
constexpr unsigned char erase = 0x7F;

}  // namespace

LineEditor::Typed LineEditor::type(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (swallows(code))
        return {};
    if (code >= 0x80)
        return rest(code);
    if (!character_.empty())  // it broke off
        character_.clear();
    if (code < blank || code == erase)
        return control(code);
    return append(std::string(1, byte));
}

std::string LineEditor::take() {
    return std::exchange(text_, {});
}

LineEditor::Typed LineEditor::control(unsigned char byte) {
    switch (byte) {
        case '\r':
        case '\n': return {Key::enter, "\n"};
        case backspace:
        case erase: return {Key::none, eraseLast()};
        case tabulator: return append(" ");
        case ctrlU: return {Key::none, eraseAll()};
        case ctrlW: return {Key::none, eraseWord()};
        case ctrlD: return text_.empty() ? Typed{Key::end, {}} : Typed{Key::none, bell};
        default: return {Key::none, bell};
    }
}

LineEditor::Typed LineEditor::rest(unsigned char byte) {
    character_ += static_cast<char>(byte);
    const std::size_t size = sizeOfUtf8(static_cast<unsigned char>(character_.front()));
    if (size > character_.size())
        return {};
    const std::string whole = std::exchange(character_, {});
    const bool isText = isUtf8Character(whole) && whole >= "\xC2\xA0";  // controls of two bytes stand below
    return isText ? append(whole) : Typed{Key::none, bell};
}

LineEditor::Typed LineEditor::append(const std::string& character) {
    if (text_.size() + character.size() > longest)
        return {Key::none, bell};
    text_ += character;
    return {Key::none, character};
}

std::string LineEditor::eraseLast() {
    if (text_.empty())
        return {};
    while (text_.size() > 1 && isRestOfUtf8(static_cast<unsigned char>(text_.back())))
        text_.pop_back();
    text_.pop_back();
    return back;
}

std::string LineEditor::eraseWord() {
    std::string echo;
    while (!text_.empty() && text_.back() == ' ')
        echo += eraseLast();
    while (!text_.empty() && text_.back() != ' ')
        echo += eraseLast();
    return echo;
}

std::string LineEditor::eraseAll() {
    std::string echo;
    while (!text_.empty())
        echo += eraseLast();
    return echo;
}

// "ESC [ ... letter", "ESC O letter", "ESC letter".
bool LineEditor::swallows(unsigned char byte) {
    switch (escape_) {
        case Escape::none:
            if (byte != escape)
                return false;
            escape_ = Escape::begun;
            return true;
        case Escape::begun:
            if (byte < blank) {  // the key by itself, and another one
                escape_ = Escape::none;
                return swallows(byte);
            }
            escape_ = byte == '[' ? Escape::sequence : byte == 'O' ? Escape::single : Escape::none;
            return true;
        case Escape::sequence:
            if (byte < blank) {
                escape_ = Escape::none;
                return swallows(byte);
            }
            if (byte >= 0x40 && byte <= 0x7E)
                escape_ = Escape::none;
            return true;
        case Escape::single: escape_ = Escape::none; return true;
    }
    return false;
}

}  // namespace velkotx::host
