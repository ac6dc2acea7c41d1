// What the program reads.
#include "program/Inputs.h"

#include "program/UsageError.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

namespace velkotx::host {

namespace {

[[noreturn]] void refuse(int systemError) {
    throw UnreadableFile(std::generic_category().message(systemError));
}

std::string readAll(std::istream& stream) {
    errno = 0;
    std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad())
        refuse(errno != 0 ? errno : EIO);
    return content;
}

std::unique_ptr<std::ifstream> openFile(const std::string& name) {
    std::error_code ignored;
    if (std::filesystem::is_directory(name, ignored))  // a stream opens a folder and only then fails to read it
        refuse(EISDIR);
    errno = 0;
    auto file = std::make_unique<std::ifstream>(name, std::ios::binary);
    if (!*file)
        refuse(errno != 0 ? errno : EIO);
    return file;
}

}  // namespace

std::unique_ptr<std::istream> Inputs::open(const std::string& name) {
    std::error_code ignored;
    if (name != "-" && std::filesystem::is_regular_file(name, ignored))
        return openFile(name);
    return std::make_unique<std::istringstream>(read(name));
}

std::string Inputs::read(const std::string& name) {
    if (name != "-")
        return readAll(*openFile(name));
    takeStandardInput();
    return readAll(standardInput_);
}

void Inputs::takeStandardInput() {
    if (standardInputTaken_)
        throw UsageError("only one input can be -, standard input");
    standardInputTaken_ = true;
}

std::string displayName(const std::string& name) {
    return name == "-" ? "<stdin>" : name;
}

}  // namespace velkotx::host
