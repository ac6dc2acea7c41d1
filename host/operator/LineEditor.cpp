// The line that somebody is typing.
#include "operator/LineEditor.h"

#include "text/Columns.h"
#include "text/Utf8.h"

#include <string_view>
#include <utility>

namespace velkotx::host {

namespace {

constexpr const char* bell = "\a";
constexpr char back = '\b';

constexpr unsigned char ctrlD = 0x04;
constexpr unsigned char backspace = 0x08;
constexpr unsigned char tabulator = 0x09;
constexpr unsigned char ctrlU = 0x15;
constexpr unsigned char ctrlW = 0x17;
constexpr unsigned char escape = 0x1B;
constexpr unsigned char blank = 0x20;
constexpr unsigned char erase = 0x7F;

std::size_t lastCharacter(std::string_view text) {
    std::size_t begin = text.size() - 1;
    while (begin > 0 && isRestOfUtf8(static_cast<unsigned char>(text[begin])))
        --begin;
    return begin;
}

// The last character that has columns, with the marks on it; empty where none has.
std::string_view lastBearer(std::string_view text) {
    for (std::size_t end = text.size(); end > 0;) {
        const std::size_t begin = lastCharacter(text.substr(0, end));
        if (columnsOf(text.substr(begin)) > 0)
            return text.substr(begin);
        end = begin;
    }
    return {};
}

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
        case ctrlU: return {Key::none, eraseFrom(0)};
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
    return text_.empty() ? std::string() : eraseFrom(lastCharacter(text_));
}

std::string LineEditor::eraseWord() {
    const std::size_t last = text_.find_last_not_of(' ');
    const std::size_t before = last == std::string::npos ? last : text_.find_last_of(' ', last);
    return eraseFrom(before == std::string::npos ? 0 : before + 1);
}

// A mark that goes stands on a character that may stay, which is written again without it.
std::string LineEditor::eraseFrom(std::size_t begin) {
    const std::string erased = text_.substr(begin);
    text_.erase(begin);
    std::size_t columns = 0;
    for (std::size_t at = 0; at < erased.size(); at += sizeOfUtf8(static_cast<unsigned char>(erased[at])))
        columns += columnsOf(std::string_view(erased).substr(at));
    const std::string echo = std::string(columns, back) + std::string(columns, ' ') + std::string(columns, back);
    const std::string_view bearer = lastBearer(text_);
    if (bearer.empty() || columnsOf(erased) > 0)
        return echo;
    return echo + std::string(columnsOf(bearer), back) + std::string(bearer);
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
