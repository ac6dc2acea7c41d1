// A regular expression of the ECMAScript grammar, told in the grammar of the matcher.
#include "match/Translation.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

#include "Utf8.h"
#include "match/Failure.h"

namespace otx {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLetter(char32_t character) {
    return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z');
}

std::optional<char32_t> hexDigit(char character) {
    if (isDigit(character)) return static_cast<char32_t>(character - '0');
    if (character >= 'a' && character <= 'f') return static_cast<char32_t>(character - 'a' + 10);
    if (character >= 'A' && character <= 'F') return static_cast<char32_t>(character - 'A' + 10);
    return std::nullopt;
}

// All that ECMAScript takes for the end of a line.
constexpr const char* anyCharacter = "[^\\n\\r\\x{2028}\\x{2029}]";

constexpr std::array<std::string_view, 12> posixClasses{"alnum", "alpha", "blank", "cntrl", "digit", "graph",
                                                        "lower", "print", "punct", "space", "upper", "xdigit"};

// One character, or a class that stands for several and is told in the matcher's words.
struct Element {
    char32_t character = 0;
    std::string_view characterClass;
};

class Translator {
public:
    explicit Translator(std::string_view expression) : rest_(expression) { result_.pattern.reserve(2 * rest_.size()); }

    Translation translate() {
        // The one-pass matcher doesn't bear the option for the end of the text.
        write("(?:");
        while (!rest_.empty()) translateNext();
        if (!groups_.empty()) failMatch("a group isn't closed");
        write(")\\z");
        return std::move(result_);
    }

private:
    struct Group {
        unsigned capture;  // its number; 0 for one that captures nothing
        bool isLookahead;
    };

    char take() {
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }
    bool takeIf(char character) {
        if (!nextIs(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool nextIs(char character) const { return !rest_.empty() && rest_.front() == character; }
    void write(std::string_view text) { result_.pattern += text; }
    void writeNumber(std::uint32_t number, int base = 10) {
        std::array<char, 12> room;
        write({room.data(), std::to_chars(room.data(), room.data() + room.size(), number, base).ptr});
    }

    void writeCharacter(char32_t character) {
        const bool isPlain = isLetter(character) || (character >= U'0' && character <= U'9') || character == U' ';
        if (isPlain) {
            result_.pattern += static_cast<char>(character);
        } else if (character >= 0x80 && !inClass_) {
            appendUtf8(result_.pattern, character);
        } else {
            write("\\x{");
            writeNumber(character, 16);
            write("}");
        }
    }

    // What a repetition may follow: one character or class, from that place of the pattern on, or a group.
    void finishAtom(std::size_t begin) {
        atom_ = begin;
        isRepeatable_ = true;
    }
    void finishGroup() { finishAtom(std::string::npos); }

    void writeAssertion(std::string_view text) {
        write(text);
        isRepeatable_ = false;
    }

    void translateNext() {
        const char next = rest_.front();
        const std::size_t begin = result_.pattern.size();
        if (static_cast<unsigned char>(next) >= 0x80) {
            writeCharacter(takeCharacter(rest_).value_or(replacementCharacter));
            return finishAtom(begin);
        }
        rest_.remove_prefix(1);
        switch (next) {
            case '^':
            case '$':
            case '|': writeAssertion({&next, 1}); break;
            case '.':
                write(anyCharacter);
                finishAtom(begin);
                break;
            case '(': openGroup(); break;
            case ')': closeGroup(); break;
            case '+': translateOpenRepetition("1"); break;
            case '*':
            case '?':
                requireRepeatable();
                write({&next, 1});
                finishRepetition();
                break;
            case '{': translateCounts(); break;
            case '[': translateClass(); break;
            case '\\': translateEscape(); break;
            default:
                writeCharacter(static_cast<unsigned char>(next));
                finishAtom(begin);
        }
    }

    void openGroup() {
        if (groups_.size() == deepestNesting) failMatch("groups are nested too deeply");
        Group group{0, false};
        if (!takeIf('?')) {
            group.capture = ++captures_;
            write("(");
        } else if (takeIf(':')) {
            write("(?:");
        } else if (nextIs('=') || nextIs('!')) {
            group.isLookahead = true;
            result_.hasLookahead = true;
            write(take() == '=' ? "(?=" : "(?!");
            writeCallout(lookaheadCallout);
            write("(?:");
        } else {
            failMatch("an unknown kind of group");
        }
        groups_.push_back(group);
        isRepeatable_ = false;
    }

    void closeGroup() {
        if (groups_.empty()) failMatch("a group is closed that isn't open");
        const bool isLookahead = groups_.back().isLookahead;
        groups_.pop_back();
        if (isLookahead) {
            write(")");
            writeCallout(lookaheadCallout);
        }
        write(")");
        finishGroup();
        isRepeatable_ = !isLookahead;
    }

    void writeCallout(unsigned number) {
        write("(?C");
        writeNumber(number);
        write(")");
    }

    void requireRepeatable() const {
        if (!isRepeatable_) failMatch("there is nothing to repeat");
    }

    void finishRepetition() {
        if (takeIf('?')) write("?");
        isRepeatable_ = false;
    }

    std::string_view takeDigits() {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), isDigit);
        const std::string_view digits(rest_.data(), static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(digits.size());
        return digits;
    }

    // Whether the counts are too large or in the wrong order is found when the pattern is compiled.
    void translateCounts() {
        requireRepeatable();
        const std::string_view least = takeDigits();
        const bool isOpen = takeIf(',');
        const std::string_view most = isOpen ? takeDigits() : least;
        if (least.empty() || !takeIf('}')) failMatch("a bad count of repetitions");
        if (isOpen && most.empty()) return translateOpenRepetition(least);
        writeCounts(least, isOpen ? most : "");
        finishRepetition();
    }

    void writeCounts(std::string_view least, std::string_view most) {
        write("{");
        write(least);
        if (!most.empty()) {
            write(",");
            write(most);
        }
        write("}");
    }

    // "a+" becomes "a{1}a*": matched in one pass, an open repetition that has a least count is a state for each count.
    void translateOpenRepetition(std::string_view least) {
        requireRepeatable();
        if (atom_ == std::string::npos) {
            write("{");
            write(least);
            write(",}");
        } else {
            const std::string atom = result_.pattern.substr(atom_);
            writeCounts(least, "");
            write(atom);
            write("*");
        }
        finishRepetition();
    }

    void translateEscape() {
        if (rest_.empty()) failMatch("a backslash at the end");
        const char next = rest_.front();
        if (next >= '1' && next <= '9') return translateBackReference();
        if (next == 'b' || next == 'B') {
            rest_.remove_prefix(1);
            return writeAssertion(next == 'b' ? "\\b" : "\\B");
        }
        const std::size_t begin = result_.pattern.size();
        writeElement(takeEscaped());
        finishAtom(begin);
    }

    void translateBackReference() {
        const std::string_view digits = takeDigits();
        unsigned number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (read.ec != std::errc() || number > captures_) failMatch("a back-reference to a group that isn't there");
        for (const Group& group : groups_) {
            if (group.capture == number) failMatch("a back-reference to a group that is still open");
        }
        result_.hasBackReference = true;
        write("(?:");
        writeCallout(std::min(number, lastGroupCallout));
        write("\\g{");
        writeNumber(number);
        write("})");
        finishGroup();
    }

    // What stands behind a backslash, inside a class or outside.
    Element takeEscaped() {
        const std::string_view begin = rest_;
        const char next = take();
        switch (next) {
            case '0': return {0, {}};
            case 'b': return {U'\b', {}};
            case 'f': return {U'\f', {}};
            case 'n': return {U'\n', {}};
            case 'r': return {U'\r', {}};
            case 't': return {U'\t', {}};
            case 'v': return {U'\v', {}};
            case 'c':
                if (rest_.empty() || !isLetter(static_cast<unsigned char>(rest_.front())))
                    failMatch("\\c without a letter");
                return {static_cast<char32_t>(take() % 32), {}};
            case 'x': return {takeHex(2), {}};
            case 'u': return {takeUtf16(), {}};
            case 'd': return {0, "\\d"};
            case 'D': return {0, "\\D"};
            case 's': return {0, "\\s"};
            case 'S': return {0, "\\S"};
            case 'w': return {0, "\\w"};
            case 'W': return {0, "\\W"};
            default: break;
        }
        rest_ = begin;
        return {takeCharacter(rest_).value_or(replacementCharacter), {}};
    }

    char32_t takeHex(std::size_t digits) {
        char32_t number = 0;
        for (std::size_t place = 0; place < digits; ++place) {
            const auto digit = rest_.empty() ? std::nullopt : hexDigit(rest_.front());
            if (!digit) failMatch("too few hexadecimal digits");
            number = number << 4 | *digit;
            rest_.remove_prefix(1);
        }
        return number;
    }

    // Two escapes that are a surrogate pair are one character.
    char32_t takeUtf16() {
        const char32_t unit = takeHex(4);
        if (unit < 0xD800 || unit > 0xDFFF) return unit;
        if (unit < 0xDC00 && takeIf('\\') && takeIf('u')) {
            const char32_t second = takeHex(4);
            if (second >= 0xDC00 && second <= 0xDFFF) return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
        }
        failMatch("half of a surrogate pair is no character");
    }

    void translateClass() {
        inClass_ = true;
        const std::size_t begin = result_.pattern.size();
        write(takeIf('^') ? "[^" : "[");
        while (!takeIf(']')) {
            const Element first = takeElement();
            const bool isRange = rest_.size() > 1 && rest_[0] == '-' && rest_[1] != ']';
            writeElement(first);
            if (!isRange) continue;
            rest_.remove_prefix(1);
            const Element last = takeElement();
            if (!first.characterClass.empty() || !last.characterClass.empty() || first.character > last.character)
                failMatch("a bad range of characters");
            write("-");
            writeElement(last);
        }
        write("]");
        inClass_ = false;
        // The matcher repeats no empty class, only a group of one.
        if (result_.pattern.compare(begin, std::string::npos, "[]") == 0) result_.pattern.replace(begin, 2, "(?:[])");
        finishAtom(begin);
    }

    Element takeElement() {
        if (rest_.empty()) failMatch("a class isn't closed");
        if (takeIf('\\')) {
            if (rest_.empty()) failMatch("a backslash at the end");
            if (rest_.front() >= '1' && rest_.front() <= '9') failMatch("a back-reference within a class");
            return takeEscaped();
        }
        if (rest_.starts_with("[:")) return takePosixClass();
        if (rest_.starts_with("[.") || rest_.starts_with("[=")) failMatch("no collating elements within a class");
        return {takeCharacter(rest_).value_or(replacementCharacter), {}};
    }

    Element takePosixClass() {
        const std::size_t end = rest_.find(":]");
        const std::string_view name = end == std::string_view::npos ? "" : rest_.substr(2, end - 2);
        if (std::find(posixClasses.begin(), posixClasses.end(), name) == posixClasses.end())
            failMatch("an unknown class of characters");
        const Element element{0, rest_.substr(0, end + 2)};
        rest_.remove_prefix(end + 2);
        return element;
    }

    void writeElement(const Element& element) {
        if (element.characterClass.empty())
            writeCharacter(element.character);
        else
            write(element.characterClass);
    }

    std::string_view rest_;
    Translation result_;
    std::vector<Group> groups_;
    unsigned captures_ = 0;
    bool isRepeatable_ = false;
    std::size_t atom_ = std::string::npos;
    bool inClass_ = false;
};

}  // namespace

Translation translateExpression(std::string_view expression) { return Translator(expression).translate(); }

}  // namespace otx
