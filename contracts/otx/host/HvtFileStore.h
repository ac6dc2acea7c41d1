// The host's store of files.
#pragma once

#include <otx/Export.h>
#include <otx/file/FileDetails.h>

#include <iosfwd>
#include <memory>
#include <string>

class COtxValue;

namespace Hvt::Fs {

// A file that was found. Only the store that gave it knows what it is.
class OTX_API Stored {
public:
    virtual ~Stored() = default;

protected:
    Stored() = default;
    Stored(const Stored&) = default;
    Stored& operator=(const Stored&) = default;
};

}  // namespace Hvt::Fs

// Implemented by the host and handed to velkotx::Sequencer::SetFileStore. Lanes of a run call it at once; no lock of the
// sequencer is held meanwhile. A failure that is a COtxException (kinds 35 to 41) reaches the sequence as it is; any other
// std::exception reaches it as kind 39 without a text. The order of the operations is part of the contract, reserved places
// included.
class OTX_API HvtFileStore {
public:
    // Finds a file; throws when it isn't there.
    virtual std::shared_ptr<Hvt::Fs::Stored> Open(const Hvt::Fs::FileDetails& details, const std::string& cache) = 0;
    // The plain content from its beginning. The format is the one that the metadata tells, empty without one. The stream is
    // read by one thread at a time, and bytes by their index only where it can seek. What its buffer throws as a COtxException
    // reaches the sequence as it is.
    virtual std::shared_ptr<std::istream> Decode(std::shared_ptr<Hvt::Fs::Stored> stored, const std::string& format) = 0;
    // A Map, asked for ahead of Open; empty for a file that has none or isn't there.
    virtual COtxValue MetaData(const Hvt::Fs::FileDetails& details, const std::string& cache) = 0;
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    virtual void Reserved3() {}

    virtual ~HvtFileStore() = default;
};
