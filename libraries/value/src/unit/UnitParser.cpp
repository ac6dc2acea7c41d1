// Names of units to their terms.
#include "UnitParser.h"

#include <array>

namespace otx {

namespace {

using namespace std::string_view_literals;

constexpr std::array products{"."sv, "*"sv, "\u00B7"sv, "\u22C5"sv, "\u00D7"sv};
// By digit.
constexpr std::array superscripts{"\u2070"sv, "\u00B9"sv, "\u00B2"sv, "\u00B3"sv, "\u2074"sv,
                                  "\u2075"sv, "\u2076"sv, "\u2077"sv, "\u2078"sv, "\u2079"sv};
constexpr std::string_view superscriptMinus = "\u207B";

constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }

class Parser {
public:
    Parser(std::string_view text, UnitTerms& terms) noexcept : text_(text), terms_(terms) {}

    // The whole text as terms, all to the power.
    bool whole(int power, int depth) noexcept {
        skipBlanks();
        return product(power, depth) && text_.empty();
    }

private:
    static constexpr int deepest = 8;

    bool product(int power, int depth) noexcept {
        if (depth > deepest || !factor(power, depth)) return false;
        while (!text_.empty() && text_.front() != ')') {
            const bool blank = skipBlanks();
            if (text_.empty() || text_.front() == ')') break;
            if (take("/")) {
                skipBlanks();
                if (!factor(-power, depth)) return false;
                continue;
            }
            const bool joined = takeAny(products) < products.size();
            skipBlanks();
            if ((!joined && !blank) || !factor(power, depth)) return false;
        }
        return true;
    }

    bool factor(int power, int depth) noexcept {
        if (text_.empty()) return false;
        if (take("(")) return group(power, depth);
        if (!isDigit(text_.front())) return symbol(power, depth);
        if (!number(power)) return false;
        return text_.empty() || !startsSymbol() || symbol(power, depth);
    }

    bool group(int power, int depth) noexcept {
        const std::size_t first = terms_.size();
        skipBlanks();
        if (!product(1, depth + 1) || !take(")")) return false;
        const std::optional<int> own = ownPower();
        if (!own) return false;
        for (UnitTerm* term = terms_.begin() + first; term != terms_.end(); ++term) {
            term->power *= *own * power;
            if (!isAllowed(term->power)) return false;
        }
        return true;
    }

    bool number(int power) noexcept {
        constexpr std::size_t longest = 18;
        std::size_t size = digitsAt(0);
        if (size < text_.size() && text_[size] == '.' && digitsAt(size + 1) > 0) size += 1 + digitsAt(size + 1);
        if (size > longest) return false;
        const UnitTerm term{nullptr, nullptr, text_.substr(0, size), power};
        text_.remove_prefix(size);
        // A sign right after a number is no power of it.
        const std::optional<int> own = !text_.empty() && text_.front() == '^' ? ownPower() : 1;
        if (!own) return false;
        return term.scale().numerator != 0 && add(term, *own);
    }

    bool symbol(int power, int depth) noexcept {
        const std::size_t size = symbolSize();
        const std::optional<FoundUnit> found = findUnit(text_.substr(0, size));
        if (size == 0 || !found) return false;
        text_.remove_prefix(size);
        const std::optional<int> own = ownPower();
        if (!own) return false;
        if (found->entry != nullptr) return add({found->entry, found->prefix, {}, power}, *own);
        return alias(*found, power * *own, depth);
    }

    bool alias(const FoundUnit& found, int power, int depth) noexcept {
        const std::size_t first = terms_.size();
        if (!isAllowed(power) || !Parser(found.meaning, terms_).whole(power, depth + 1)) return false;
        if (found.prefix != nullptr) terms_.begin()[first].prefix = found.prefix;
        return true;
    }

    bool add(UnitTerm term, int ownPower) noexcept {
        term.power *= ownPower;
        if (!isAllowed(term.power)) return false;
        // A one is there for the sake of the writing, as in "1/min".
        return (term.isNumber() && term.scale().isOne()) || terms_.add(term);
    }

    // The power after a factor, 1 when there is none; nothing when it is not to be read.
    std::optional<int> ownPower() noexcept {
        if (take("^")) return plainPower();
        if (text_.empty()) return 1;
        const bool sign = (text_.front() == '-' || text_.front() == '+') && digitsAt(1) > 0;
        if (sign || isDigit(text_.front())) return plainPower();
        const bool negative = take(superscriptMinus);
        std::size_t digit = takeAny(superscripts);
        if (digit == superscripts.size()) return negative ? std::nullopt : std::optional<int>(1);
        int power = 0;
        for (; digit < superscripts.size(); digit = takeAny(superscripts)) {
            power = power * 10 + static_cast<int>(digit);
            if (!isAllowed(power)) return {};
        }
        return negative ? -power : power;
    }

    std::optional<int> plainPower() noexcept {
        const bool negative = take("-");
        if (!negative) take("+");
        const std::size_t size = digitsAt(0);
        int power = 0;
        for (std::size_t i = 0; i < size; ++i) {
            power = power * 10 + (text_[i] - '0');
            if (!isAllowed(power)) return {};
        }
        if (size == 0) return {};
        text_.remove_prefix(size);
        return negative ? -power : power;
    }

    static bool isAllowed(int power) noexcept {
        return power >= -UnitTerm::largestPower && power <= UnitTerm::largestPower;
    }

    std::size_t digitsAt(std::size_t place) const noexcept {
        std::size_t end = place;
        while (end < text_.size() && isDigit(text_[end])) ++end;
        return end - place;
    }

    bool startsSymbol() const noexcept { return symbolSize() > 0; }

    // Letters, "%", "_", and characters beyond ASCII that are no operators.
    std::size_t symbolSize() const noexcept {
        std::size_t size = 0;
        while (size < text_.size()) {
            const char character = text_[size];
            const bool letter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
            const bool beyond = static_cast<unsigned char>(character) >= 0x80;
            if (!letter && !beyond && character != '%' && character != '_') break;
            if (beyond && isOperator(text_.substr(size))) break;
            ++size;
        }
        return size;
    }

    static bool isOperator(std::string_view text) noexcept {
        for (const std::string_view operation : products)
            if (text.starts_with(operation)) return true;
        for (const std::string_view digit : superscripts)
            if (text.starts_with(digit)) return true;
        return text.starts_with(superscriptMinus);
    }

    bool skipBlanks() noexcept {
        const std::size_t before = text_.size();
        while (!text_.empty() && text_.front() == ' ') text_.remove_prefix(1);
        return text_.size() != before;
    }

    bool take(std::string_view expected) noexcept {
        if (!text_.starts_with(expected)) return false;
        text_.remove_prefix(expected.size());
        return true;
    }

    // Which of them; their number when none.
    template <std::size_t size>
    std::size_t takeAny(const std::array<std::string_view, size>& expected) noexcept {
        std::size_t place = 0;
        while (place < size && !take(expected[place])) ++place;
        return place;
    }

    std::string_view text_;
    UnitTerms& terms_;
};

}  // namespace

std::optional<UnitTerms> parseUnit(std::string_view name) noexcept {
    while (name.ends_with(' ')) name.remove_suffix(1);
    while (name.starts_with(' ')) name.remove_prefix(1);
    std::optional<UnitTerms> terms(std::in_place);
    if (name.empty()) return terms;
    // First as one symbol: some aliases contain what would be operators.
    const std::optional<FoundUnit> found = findUnit(name);
    if (found && found->entry != nullptr) {
        terms->add({found->entry, found->prefix, {}, 1});
        return terms;
    }
    const std::string_view meaning = found && found->prefix == nullptr ? found->meaning : name;
    if (!Parser(meaning, *terms).whole(1, 0)) terms.reset();
    return terms;
}

}  // namespace otx
