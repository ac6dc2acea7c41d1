// Colour for people.
#include "program/Terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace velkotx::host {

namespace {

std::string_view environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

}  // namespace

Paint::Paint(int descriptor)
    : on_(environment("NO_COLOR").empty() && environment("TERM") != "dumb" && isatty(descriptor) == 1) {}

Paint Paint::forStandardOutput() {
    return Paint(STDOUT_FILENO);
}

Paint Paint::forStandardError() {
    return Paint(STDERR_FILENO);
}

std::string Paint::name(const std::string& text) const {
    return in("\x1B[1m", text);
}

std::string Paint::failure(const std::string& text) const {
    return in("\x1B[31m", text);
}

std::string Paint::in(const char* style, const std::string& text) const {
    return on_ ? style + text + "\x1B[0m" : text;
}

}  // namespace velkotx::host
