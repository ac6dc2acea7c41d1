// otx_faults: puts faults into the loading, saving and running of a document.
#include "Parts.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string_view>

namespace {

using Part = std::vector<faults::Series> (*)(const std::string& document);

const std::map<std::string_view, Part> parts{{"load", faults::loadingWithoutMemory},
                                             {"save", faults::savingWithoutMemory},
                                             {"run", faults::runningWithoutMemory},
                                             {"host", faults::refusingHost},
                                             {"streams", faults::breakingStreams}};

bool readCount(std::string_view text, std::size_t& value) {
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end && value != 0;
}

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(std::string("can't read ") + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv) try {
    std::size_t every = 1;
    const auto part = argc == 4 ? parts.find(argv[1]) : parts.end();
    if (part == parts.end() || !readCount(argv[2], every)) {
        std::fprintf(stderr, "usage: otx_faults load|save|run|host|streams EVERY DOCUMENT.otx\n");
        return 2;
    }
    const std::string document = contentOf(argv[3]);
    bool passed = true;
    for (const faults::Series& series : part->second(document)) passed = faults::holds(series, every) && passed;
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "otx_faults: %s\n", failure.what());
    return EXIT_FAILURE;
}
