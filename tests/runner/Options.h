// The command line of the runner.
#pragma once

#include "Mode.h"

#include <filesystem>
#include <string>

namespace documents {

struct Options {
    Mode mode = Mode::xml;
    bool commaLocale = false;
    bool rebase = false;
    bool verbose = false;
    std::string filter = "*";  // a glob on the name of a document: its path below the root, without ".otx"
    std::filesystem::path root;
};

// Throws std::invalid_argument with the usage for a command line that it can't read.
Options readOptions(int argumentCount, const char* const* arguments);

}  // namespace documents
