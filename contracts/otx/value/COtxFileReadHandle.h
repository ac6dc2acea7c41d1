// The handle of a file that is open for reading.
#pragma once

#include <otx/value/COtxStringEncoding.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IFileHandle.h>

#include <iosfwd>
#include <memory>

// Shares the stream with whoever opened it. Reads through one handle are serialised by the handle.
class OTX_API COtxFileReadHandle : public COtxValue {
public:
    // An unopened handle, which behaves as a closed one.
    COtxFileReadHandle();
    // The path is what the sequence named the file by; it is the handle's text.
    COtxFileReadHandle(std::shared_ptr<std::istream>& stream, COtxStringEncoding::Encoding encoding,
                       const COtxValue& path);
};
