// The operations of an open file.
#pragma once

#include <otx/Export.h>

#include <cstdint>

class COtxValue;

namespace OTX {

// Behind COtxValue::FileHandle().
class OTX_API IFileHandle {
public:
    // Gives the file back. A closed handle refuses to read with kind 36 (FileException); closing again does nothing.
    virtual void Close() = 0;

protected:
    ~IFileHandle() = default;
};

// Behind COtxValue::FileReadHandle(). Any thread: the operations of one handle take turns. Throws kind 36 (FileException) at
// the end, for an index that isn't there and for more than 256 MB at once, kind 35 (FileAccessException) for a stream that
// breaks down; a COtxException of the stream's goes on unchanged.
class OTX_API IFileReadHandle {
public:
    // Boolean.
    virtual COtxValue IsEof() = 0;
    // ByteField. The index is a byte position from the start, -1 the present one; the count is in bytes, -1 to the end.
    virtual COtxValue ReadBytes(std::int64_t index, std::int64_t count) = 0;
    // String, without its line end (a line feed, with or without a carriage return ahead of it), decoded with the handle's
    // encoding. Throws kind 37 (FileFormatException) for bytes that are no such text, and goes on behind them next time.
    virtual COtxValue ReadLine() = 0;

protected:
    ~IFileReadHandle() = default;
};

}  // namespace OTX
