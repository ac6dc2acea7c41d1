// Writes a time by a pattern of ISO 13209's letters.
#include <OTXDateTimeTerms/DateFormatter.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iomanip>
#include <map>
#include <sstream>

namespace DateTime {

namespace {

constexpr std::string_view patternLetters = "GyMdDFEhHmsSwWazZ";

// "%0" marks a number without padding, which strftime doesn't have; it never gets there.
constexpr std::string_view unpadded = "%0";

using Table = std::map<std::string_view, std::string_view>;
const Table replacements{
    {"y", "%Y"},   {"yy", "%y"},  {"yyy", "%y"}, {"yyyy", "%Y"},
    {"M", "%0m"},  {"MM", "%m"},  {"MMM", "%b"}, {"MMMM", "%B"},
    {"d", "%0d"},  {"dd", "%d"},  {"D", "%j"},
    // Two letters are already the long form; this is meant.
    {"E", "%a"},   {"EE", "%A"},  {"EEE", "%A"}, {"EEEE", "%A"},
    {"G", "AD"},
    // The sentences are part of the result; this is meant.
    {"W", "Week in month not supported"},
    {"F", "Day of week of month not supported"},
    {"hh", "%I"},  {"HH", "%H"},  {"mm", "%M"},  {"ss", "%S"},
    {"h", "%0I"},  {"H", "%0H"},  {"m", "%0M"},  {"s", "%0s"},
    {"S", "%0S"},  {"SS", "00"},  {"SSS", "000"},
    {"w", "%V"},   {"a", "%p"},
    {"z", "%Z"},   {"zz", "%Z"},  {"zzz", "%Z"}, {"zzzz", "%Z"},
    {"Z", "%z"},
};

constexpr std::array<std::string_view, 7> notOfDurations{"y", "yy", "yyyy", "M", "MM", "d", "dd"};

template <class Range>
bool contains(const Range& range, std::string_view token) {
    return std::find(range.begin(), range.end(), token) != range.end();
}

class Digits {
public:
    explicit Digits(int number) : end_(std::to_chars(room_.data(), room_.data() + room_.size(), number).ptr) {}
    std::string_view text() const { return {room_.data(), static_cast<std::size_t>(end_ - room_.data())}; }

private:
    std::array<char, 12> room_;
    const char* end_;
};

int unpaddedNumber(char mark, const Moment& moment) {
    switch (mark) {
        case 'd': return moment.fields.tm_mday;
        case 'm': return moment.fields.tm_mon + 1;
        case 'H': return moment.fields.tm_hour;
        case 'M': return moment.fields.tm_min;
        case 's': return moment.fields.tm_sec;
        case 'S': return moment.milliseconds;
        // The hour of the 12-hour clock too; this is meant.
        default: return 0;
    }
}

class Formatter {
public:
    explicit Formatter(const Moment& moment) : moment_(moment) {}

    std::string translate(std::string_view pattern) {
        for (const char character : pattern) {
            if (character == '\'')
                takeQuote();
            else
                takeCharacter(character);
            previous_ = character;
        }
        // Nothing has been remembered of a quoted text, which is lost here; this is meant.
        if (tokenSize_ != 0) flush();
        return std::move(output_);
    }

private:
    void takeQuote() {
        if (previous_ == '\'') token_ += '\'';
        if (!inQuote_) flush();
        inQuote_ = !inQuote_;
    }

    void takeCharacter(char character) {
        if (!inQuote_) {
            const bool continues = (previous_ == '\0' || character == previous_) &&
                                   patternLetters.find(character) != std::string_view::npos;
            if (!continues) flush();
            tokenSize_ = token_.size() + 1;
        }
        token_ += character;
    }

    // Quoted texts are translated like all others; this is meant.
    void flush() {
        writeToken();
        token_.clear();
        tokenSize_ = 0;
    }

    void writeToken() {
        const auto entry = moment_.isDuration && contains(notOfDurations, token_) ? replacements.end()
                                                                                  : replacements.find(token_);
        if (entry == replacements.end()) {
            output_ += token_;
            return;
        }
        const std::string_view replacement = entry->second;
        if (replacement == "00" || replacement == "000")
            writeMilliseconds(replacement);
        else if (replacement.find(unpadded) != std::string_view::npos)
            output_ += Digits(unpaddedNumber(replacement[2], moment_)).text();
        else
            output_ += replacement;
    }

    void writeMilliseconds(std::string_view zeros) {
        const Digits digits(moment_.milliseconds);
        const std::size_t width = digits.text().size();
        if (width < zeros.size()) output_ += zeros.substr(width);
        output_ += digits.text();
    }

    const Moment& moment_;
    std::string output_;
    std::string token_;
    // None at the beginning; a pattern holds no NUL.
    char previous_ = '\0';
    bool inQuote_ = false;
    std::size_t tokenSize_ = 0;
};

}  // namespace

std::string formatMoment(std::string_view pattern, const Moment& moment) {
    const std::string format = Formatter(moment).translate(pattern);
    std::ostringstream out;
    out << std::put_time(&moment.fields, format.c_str());
    return std::move(out).str();
}

}  // namespace DateTime
