// otx_soak: many runs in one process, and many sequencers at once.
#include "Parts.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace {

std::size_t countOf(std::string_view text) {
    std::size_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || value == 0)
        throw std::invalid_argument("not a count: " + std::string(text));
    return value;
}

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(std::string("can't read ") + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool run(int count, char** arguments) {
    const std::string_view part = count > 1 ? arguments[1] : "";
    if (part == "runs" && count == 5)
        return soak::runOverAndOver(contentOf(arguments[4]), countOf(arguments[3]), std::chrono::minutes(countOf(arguments[2])));
    if (part == "crowd" && count == 4) return soak::runCrowds(countOf(arguments[2]), countOf(arguments[3]));
    throw std::invalid_argument("usage: otx_soak runs MINUTES COUNT DOCUMENT.otx | otx_soak crowd SEQUENCERS ROUNDS");
}

}  // namespace

int main(int argc, char** argv) try {
    return run(argc, argv) ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "otx_soak: %s\n", failure.what());
    return 2;
}
