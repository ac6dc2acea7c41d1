// The content of a file that is packed with gzip (RFC 1952).
#pragma once

#include "store/PlainBuffer.h"

#include <memory>

namespace velkotx::host {

// Unpacks as it is read. Several members follow one another. What is no gzip, breaks off or has a wrong checksum throws
// COtxException, kind 37, where the reader comes to it.
class GzipBuffer : public ContentBuffer {
public:
    explicit GzipBuffer(std::shared_ptr<const OpenFile> file);
    ~GzipBuffer() override;

private:
    struct Inflation;

    std::size_t readOn(char* target, std::size_t room) override;
    bool moveTo(std::int64_t place) override;

    const std::shared_ptr<const OpenFile> file_;
    std::unique_ptr<Inflation> inflation_;
};

}  // namespace velkotx::host
