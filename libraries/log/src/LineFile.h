// What lines are written to: standard error or a file.
#pragma once

#include <otx/log/LogOutput.h>

#include <string>

namespace Hvt {

// Not to be used by two threads at a time.
class LineFile {
public:
    // Standard error, which stays open.
    LineFile() noexcept;
    // Throws std::runtime_error, the path and the system's reason.
    explicit LineFile(const LogFile& file);
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;
    ~LineFile();

    // Writes the line, which ends with its line end; false if it couldn't be written, and then no part of it stands there.
    bool write(const std::string& line) noexcept;

    // Waits until what was written is on the disk.
    void sync() noexcept;

private:
    void takeDescriptor(int descriptor) noexcept;
    void endLastLine() noexcept;
    bool writeWhole(const std::string& line) noexcept;
    bool takeBack(std::size_t written) noexcept;
    void rotate() noexcept;
    bool moveAway() noexcept;

    const LogFile file_;
    int descriptor_;
    bool isRegular_ = false;
    std::uint64_t size_ = 0;
    std::uint64_t rotateAbove_ = 0;
};

}  // namespace Hvt
