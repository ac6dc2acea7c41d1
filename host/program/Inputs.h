// What the program reads: the document and the files of values, one of which may be standard input.
#pragma once

#include <iosfwd>
#include <memory>
#include <stdexcept>
#include <string>

namespace velkotx::host {

// A file can't be read. what() says why, without the file's name.
class UnreadableFile : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Opens inputs by name, "-" being the stream given, which can be taken once.
class Inputs {
public:
    explicit Inputs(std::istream& standardInput) : standardInput_(standardInput) {}

    // A stream that can be sought in, at its beginning. What is no plain file is read into memory first. Throws
    // UnreadableFile for a name without a file, a folder, a file that may not be read, and UsageError for a second "-".
    std::unique_ptr<std::istream> open(const std::string& name);

    // The whole content. Throws as open does.
    std::string read(const std::string& name);

    // Standard input is read by someone else from here on. Throws UsageError if it was taken before.
    void takeStandardInput();
    bool isStandardInputTaken() const { return standardInputTaken_; }

private:
    std::istream& standardInput_;
    bool standardInputTaken_ = false;
};

// What a person calls the input: the file's name, or "<stdin>".
std::string displayName(const std::string& name);

}  // namespace velkotx::host
