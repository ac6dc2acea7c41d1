// Colour for people, only where a person can see it.
#pragma once

#include <string>

namespace velkotx::host {

// Paints what goes to one of the program's streams. Paints nothing unless the stream is a terminal that knows colours
// and the environment variable NO_COLOR is unset or empty.
class Paint {
public:
    static Paint forStandardOutput();
    static Paint forStandardError();

    std::string name(const std::string& text) const;
    std::string failure(const std::string& text) const;

private:
    explicit Paint(int descriptor);
    std::string in(const char* style, const std::string& text) const;

    bool on_;
};

}  // namespace velkotx::host
