// Reads the texts of attributes: UTF-16 to UTF-8, numbers, dates and bytes.
#include <schema/Text.h>

#include <xsd/cxx/xml/string.hxx>

#include <locale.h>
#include <stdlib.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace schema {

InvalidValue::InvalidValue(std::string text, std::string typeName)
    : text_(std::move(text)), typeName_(std::move(typeName)) {}

InvalidValue::~InvalidValue() throw() = default;

const char* InvalidValue::what() const throw() {
    return "invalid value encountered";
}

void InvalidValue::print(std::ostream& out) const {
    out << "invalid value '" << text_ << "' for type '" << typeName_ << "'";
}

std::string narrow(const char16_t* text) {
    if (text == nullptr) return {};
    std::size_t length = 0;
    char16_t all = 0;
    for (; text[length] != 0; ++length) all = static_cast<char16_t>(all | text[length]);
    if (all >= 0x80) return xsd::cxx::xml::transcode<char>(text);
    std::string narrowed(length, '\0');
    for (std::size_t i = 0; i < length; ++i) narrowed[i] = static_cast<char>(text[i]);
    return narrowed;
}

namespace {

// XML's white space, which the types here collapse (XML Schema Part 2, whiteSpace).
std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// from_chars takes no plus sign, XML Schema does.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

template <typename T>
bool readAll(std::string_view text, T& value) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    return result.ec == std::errc() && result.ptr == end;
}

// Reads the fields of a date one after the other.
class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    bool sign(char c) {
        if (rest_.empty() || rest_[0] != c) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool digits(std::size_t least, std::size_t most, int& value) {
        std::size_t count = 0;
        while (count < rest_.size() && count < most && rest_[count] >= '0' && rest_[count] <= '9') ++count;
        if (count < least || !readAll(rest_.substr(0, count), value)) return false;
        rest_.remove_prefix(count);
        return true;
    }

    bool seconds(double& value) {
        std::size_t count = 0;
        while (count < rest_.size() && ((rest_[count] >= '0' && rest_[count] <= '9') || rest_[count] == '.')) ++count;
        if (count < 2 || rest_[0] == '.' || !readAll(rest_.substr(0, count), value)) return false;
        rest_.remove_prefix(count);
        return true;
    }

    bool done() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

}  // namespace

template <>
bool readNumber<bool>(const char16_t* text) {
    const std::string narrowed = narrow(text);
    const auto value = trimmed(narrowed);
    if (value == "true" || value == "1") return true;
    if (value == "false" || value == "0") return false;
    throw InvalidValue(narrowed, "boolean");
}

template <>
long long readNumber<long long>(const char16_t* text) {
    const std::string narrowed = narrow(text);
    long long value = 0;
    if (!readAll(withoutPlus(trimmed(narrowed)), value)) throw InvalidValue(narrowed, "long");
    return value;
}

template <>
double readNumber<double>(const char16_t* text) {
    const std::string narrowed = narrow(text);
    const auto digits = trimmed(narrowed);
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (digits == "INF" || digits == "+INF") return infinity;
    if (digits == "-INF") return -infinity;
    if (digits == "NaN") return std::numeric_limits<double>::quiet_NaN();
    double value = 0.0;
    const auto number = withoutPlus(digits);
    // from_chars would also take the words "inf" and "nan" in their C spelling.
    const bool numeric = number.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
    if (!numeric) throw InvalidValue(narrowed, "double");
    const char* const end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, value);
    if (result.ptr != end) throw InvalidValue(narrowed, "double");
    if (result.ec == std::errc()) return value;
    // from_chars doesn't tell too large from too small. The latter reads as the nearest double, the former is refused.
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    if (result.ec == std::errc::result_out_of_range) value = strtod_l(std::string(number).c_str(), nullptr, cLocale);
    if (result.ec != std::errc::result_out_of_range || std::isinf(value)) throw InvalidValue(narrowed, "double");
    return value;
}

std::unique_ptr<date_time> readDateTime(const std::string& text) {
    DateReader reader(trimmed(text));
    int year = 0, month = 0, day = 0, hours = 0, minutes = 0, zoneHours = 0, zoneMinutes = 0;
    double seconds = 0.0;
    const bool before = reader.sign('-');
    bool valid = reader.digits(4, 9, year) && reader.sign('-') && reader.digits(2, 2, month) && reader.sign('-') &&
                 reader.digits(2, 2, day) && reader.sign('T') && reader.digits(2, 2, hours) && reader.sign(':') &&
                 reader.digits(2, 2, minutes) && reader.sign(':') && reader.seconds(seconds);
    bool zoned = valid && reader.sign('Z');
    if (valid && !zoned && !reader.done()) {
        const bool west = reader.sign('-');
        zoned = west || reader.sign('+');
        valid = zoned && reader.digits(2, 2, zoneHours) && reader.sign(':') && reader.digits(2, 2, zoneMinutes);
        if (west) {
            zoneHours = -zoneHours;
            zoneMinutes = -zoneMinutes;
        }
    }
    if (!valid || !reader.done()) throw InvalidValue(text, "dateTime");
    const auto part = [](int value) { return static_cast<unsigned short>(value); };
    if (before) year = -year;
    if (!zoned)
        return std::make_unique<date_time>(year, part(month), part(day), part(hours), part(minutes), seconds);
    return std::make_unique<date_time>(year, part(month), part(day), part(hours), part(minutes), seconds,
                                       static_cast<short>(zoneHours), static_cast<short>(zoneMinutes));
}

std::unique_ptr<hex_binary> readHexBinary(const std::string& text) {
    const auto digits = trimmed(text);
    if (digits.size() % 2 != 0) throw InvalidValue(text, "hexBinary");
    auto bytes = std::make_unique<hex_binary>(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        unsigned char value = 0;
        const auto result = std::from_chars(digits.data() + i, digits.data() + i + 2, value, 16);
        if (result.ec != std::errc() || result.ptr != digits.data() + i + 2) throw InvalidValue(text, "hexBinary");
        *(bytes->data() + i / 2) = static_cast<char>(value);
    }
    return bytes;
}

// Copied into place: setting the container of a finished object would walk up to the root of the tree.
template <>
std::unique_ptr<date_time> readObject<date_time>(const char16_t* text, const DomElement&, flags f, container* owner) {
    return std::make_unique<date_time>(*readDateTime(narrow(text)), f, owner);
}

template <>
std::unique_ptr<hex_binary> readObject<hex_binary>(const char16_t* text, const DomElement&, flags f, container* owner) {
    return std::make_unique<hex_binary>(*readHexBinary(narrow(text)), f, owner);
}

}  // namespace schema
