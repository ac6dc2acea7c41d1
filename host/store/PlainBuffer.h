// The content of a file as it is.
#pragma once

#include "store/ContentBuffer.h"
#include "store/Descriptor.h"

#include <memory>
#include <string>

namespace velkotx::host {

// An open file, shared by the streams over it. Each reads from a place of its own.
struct OpenFile {
    Descriptor file;
    std::string name;
};

// Up to so many bytes from a place on; 0 at the end. Throws COtxException, kind 35.
std::size_t readAt(const OpenFile& file, std::int64_t place, char* target, std::size_t room);

class PlainBuffer : public ContentBuffer {
public:
    explicit PlainBuffer(std::shared_ptr<const OpenFile> file) : file_(std::move(file)) {}

private:
    std::size_t readOn(char* target, std::size_t room) override;
    bool moveTo(std::int64_t place) override;
    std::streamsize showmanyc() override;

    const std::shared_ptr<const OpenFile> file_;
};

}  // namespace velkotx::host
