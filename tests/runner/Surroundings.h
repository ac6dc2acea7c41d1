// The folder of plug-ins and the working folder of a document that asks for them.
#pragma once

#include "ExpectFile.h"

#include <filesystem>

namespace documents {

// For the whole process, while nothing else runs in it; as it was when this dies.
class Surroundings {
public:
    explicit Surroundings(const Script& script);
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    ~Surroundings();

private:
    const std::filesystem::path before_;
};

}  // namespace documents
