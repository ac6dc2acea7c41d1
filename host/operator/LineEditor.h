// The line that somebody is typing.
#pragma once

#include <cstddef>
#include <string>

namespace velkotx::host {

// Takes what a terminal sends, byte by byte, and gives what it has to show for it. Knows the keys that a terminal's own line
// editing knows: backspace, Ctrl-U (the line), Ctrl-W (a word), Ctrl-D. What is no UTF-8, no text, or too much rings the bell
// and counts for nothing; arrows and other keys of several bytes count for nothing. What is erased takes its columns from the
// screen, within one row. No thread may change it; it isn't bound to any.
class LineEditor {
public:
    static constexpr std::size_t longest = 65536;  // bytes

    enum class Key {
        none,
        enter,  // the line is whole, take it
        end,    // Ctrl-D on an empty line
    };
    struct Typed {
        Key key = Key::none;
        std::string echo;
    };
    Typed type(char byte);

    const std::string& text() const { return text_; }
    // The text, which leaves an empty line.
    std::string take();

private:
    Typed control(unsigned char byte);
    Typed rest(unsigned char byte);
    Typed append(const std::string& character);
    std::string eraseLast();
    std::string eraseWord();
    std::string eraseFrom(std::size_t begin);
    bool swallows(unsigned char byte);

    enum class Escape { none, begun, sequence, single } escape_ = Escape::none;
    std::string text_;       // UTF-8
    std::string character_;  // one that isn't whole yet
};

}  // namespace velkotx::host
