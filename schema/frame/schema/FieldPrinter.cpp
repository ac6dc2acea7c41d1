// Lays out the lines of a shown file.
#include <schema/FieldPrinter.h>

#include <algorithm>
#include <ostream>

namespace schema {

namespace {

constexpr std::size_t bytesShown = 8;
constexpr std::size_t offsetWidth = 8;
constexpr std::size_t bytesWidth = 3 * bytesShown + 1;
constexpr std::size_t bytesColumn = offsetWidth + 2 + bytesWidth;
constexpr const char* digits = "0123456789abcdef";

std::string hex(unsigned char byte) {
    return {digits[byte >> 4U], digits[byte & 15U]};
}

// A column of that width; longer text stays whole.
std::string column(std::string text, std::size_t width, bool right) {
    const std::string blanks(width > text.size() ? width - text.size() : 0, ' ');
    return right ? blanks + text : text + blanks;
}

std::string quoted(const std::string& text) {
    std::string shown = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            shown += std::string("\\") + c;
        else if (static_cast<unsigned char>(c) < ' ' || c == '\x7f')
            shown += "\\x" + hex(static_cast<unsigned char>(c));
        else
            shown += c;
    }
    return shown + '"';
}

// "DiagCom:Request"; the types of the core without a module.
std::string shortName(const TypeName& name) {
    const std::string space = name.space;
    const std::string last = space.substr(space.rfind('/') + 1);
    const bool core = !last.empty() && last.find_first_not_of("0123456789.") == std::string::npos;
    return core ? name.name : last + ':' + name.name;
}

}  // namespace

void FieldPrinter::member(std::u16string_view name) {
    // Names of the catalogue are ASCII.
    members_.back().assign(name.begin(), name.end());
}

void FieldPrinter::enter(const RegisteredType& entered) {
    const std::string label = members_.empty() ? "" : members_.back() + ": ";
    out_ << std::string(bytesColumn, ' ') << indent() << label << shortName(entered.name) << '\n';
    members_.emplace_back();
}

void FieldPrinter::leave() {
    members_.pop_back();
}

void FieldPrinter::field(const Field& field) {
    if (field.begin != field.at) line(field.begin, field.at, "padding");
    std::string label = members_.back();
    if (*field.role != 0) label += std::string(label.empty() ? "" : " ") + field.role;
    const std::string value = field.text ? quoted(field.value) : field.value;
    line(field.at, field.end, value.empty() ? label : label + ": " + value);
}

std::string FieldPrinter::indent() const {
    return std::string(2 * members_.size(), ' ');
}

void FieldPrinter::rest() {
    if (end_ < bytes_.size()) line(end_, bytes_.size(), "behind the document");
}

void FieldPrinter::line(std::size_t begin, std::size_t end, const std::string& text) {
    std::string bytes;
    for (std::size_t at = begin; at < std::min(end, begin + bytesShown); ++at)
        bytes += hex(static_cast<unsigned char>(bytes_[at])) + ' ';
    if (end - begin > bytesShown) bytes.replace(bytes.size() - 1, 1, "+");
    out_ << column(std::to_string(begin), offsetWidth, true) << "  " << column(bytes, bytesWidth, false) << indent() << text
         << '\n';
    end_ = end;
}

}  // namespace schema
