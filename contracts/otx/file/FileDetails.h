// What names a file in a store, and the words that a store and its users share.
#pragma once

#include <otx/Export.h>

#include <string>
#include <utility>

namespace Hvt::Fs {

// A plain value. The type is a word for the kind of file; sequences read those of type "FILE".
class OTX_API FileDetails {
public:
    FileDetails(std::string name, std::string type) : name_(std::move(name)), type_(std::move(type)) {}

    const std::string& Name() const noexcept { return name_; }
    const std::string& Type() const noexcept { return type_; }

private:
    std::string name_;
    std::string type_;
};

// Names of the parts of a store.
struct Caches {
    // Where the files are that sequences read.
    static constexpr const char* DEFAULT = "default";
};

// Keys of the metadata of a file.
struct MetaData {
    // A String: how the content is packed, which is what HvtFileStore::Decode is given. Empty or missing for not at all.
    static constexpr const char* FORMAT = "format";
};

}  // namespace Hvt::Fs
