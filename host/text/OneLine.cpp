// Makes a text fit for one line of a terminal.
#include "text/OneLine.h"

#include <cstddef>

namespace velkotx::host {

namespace {

void appendHex(std::string& line, unsigned char byte) {
    static constexpr char digits[] = "0123456789ABCDEF";
    line += "\\x";
    line += digits[byte >> 4U];
    line += digits[byte & 0xFU];
}

// Characters that can't be seen and change the order in which others are, or hide among them.
constexpr std::string_view unseen[]{
    "\xD8\x9C",                                                                                    // U+061C
    "\xE2\x80\x8B", "\xE2\x80\x8E", "\xE2\x80\x8F",                                              // U+200B, U+200E, U+200F
    "\xE2\x80\xA8", "\xE2\x80\xA9",                                                               // U+2028, U+2029
    "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",              // U+202A to U+202E
    "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9",                              // U+2066 to U+2069
    "\xEF\xBB\xBF",                                                                               // U+FEFF
};

// The number of bytes, from `at` on, of a control character or one of the unseen beyond ASCII, as UTF-8; 0 for all else.
std::size_t wideControlLength(std::string_view text, std::size_t at) {
    const std::string_view rest = text.substr(at);
    if (rest.size() >= 2 && rest[0] == '\xC2' && static_cast<unsigned char>(rest[1]) < 0xA0)
        return 2;  // U+0080 to U+009F
    for (const std::string_view character : unseen)
        if (rest.starts_with(character))
            return character.size();
    return 0;
}

}  // namespace

std::string oneLine(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
    std::string line;
    line.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const auto byte = static_cast<unsigned char>(text[at]);
        std::size_t escaped = wideControlLength(text, at);
        if (text[at] == '\n') {
            line += "\\n";
            ++at;
        } else if (text[at] == '\t') {
            line += "\\t";
            ++at;
        } else if (escaped > 0 || byte < 0x20 || byte == 0x7F) {
            for (escaped = escaped > 0 ? escaped : 1; escaped > 0; --escaped)
                appendHex(line, static_cast<unsigned char>(text[at++]));
        } else {
            line += text[at++];
        }
    }
    return line;
}

}  // namespace velkotx::host
