// A store of files over a folder.
#include "store/FolderFileStore.h"

#include "store/BeneathFolder.h"
#include "store/GzipBuffer.h"
#include "store/PlainBuffer.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxMap.h>
#include <otx/value/IException.h>
#include <otx/value/Json.h>

#include <istream>
#include <string_view>

namespace velkotx::host {

namespace {

using Kind = OTX::Exceptions_e;

constexpr std::string_view metaDataEnd = ".meta.json";
constexpr std::size_t largestMetaData = 65536;

class FoundFile : public Hvt::Fs::Stored {
public:
    FoundFile(Descriptor file, const std::string& name)
        : content(std::make_shared<const OpenFile>(OpenFile{std::move(file), name})) {}

    const std::shared_ptr<const OpenFile> content;
};

// A stream together with its buffer.
template <class Buffer>
class ContentStream : public std::istream {
public:
    explicit ContentStream(std::shared_ptr<const OpenFile> file) : std::istream(nullptr), buffer_(std::move(file)) {
        rdbuf(&buffer_);
    }

private:
    Buffer buffer_;
};

bool isKnown(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    return details.Type() == "FILE" && cache == Hvt::Fs::Caches::DEFAULT && !details.Name().ends_with(metaDataEnd);
}

std::string contentOf(const OpenFile& file) {
    std::string content(largestMetaData + 1, '\0');
    std::size_t size = 0;
    while (const std::size_t count = readAt(file, static_cast<std::int64_t>(size), content.data() + size, content.size() - size))
        size += count;
    if (size > largestMetaData)
        failStore(Kind::FileFormatException, file.name, "more than " + std::to_string(largestMetaData) + " bytes");
    content.resize(size);
    return content;
}

COtxValue metaDataOf(const OpenFile& file) {
    const std::string json = contentOf(file);
    try {
        const COtxValue metaData = OTX::FromJSON(json);
        if (metaData.Type() == OTX::ValueType::Map)
            return metaData;
    } catch (const COtxValue& refused) {
        failStore(Kind::FileFormatException, file.name, refused.what());
    }
    failStore(Kind::FileFormatException, file.name, "no JSON object");
}

}  // namespace

FolderFileStore::FolderFileStore(const std::string& folder) : folder_(std::make_unique<const Descriptor>(openFolder(folder))) {}

FolderFileStore::~FolderFileStore() = default;

std::shared_ptr<Hvt::Fs::Stored> FolderFileStore::Open(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    if (!isKnown(details, cache))
        throw COtxException(Kind::FileNotFoundException);
    return std::make_shared<FoundFile>(openBeneath(*folder_, details.Name()), details.Name());
}

std::shared_ptr<std::istream> FolderFileStore::Decode(std::shared_ptr<Hvt::Fs::Stored> stored, const std::string& format) {
    const auto found = std::dynamic_pointer_cast<FoundFile>(std::move(stored));
    if (found == nullptr)
        throw COtxException(Kind::FileOpenException, "A file of another store");
    if (format.empty())
        return std::make_shared<ContentStream<PlainBuffer>>(found->content);
    if (format == "gzip")
        return std::make_shared<ContentStream<GzipBuffer>>(found->content);
    failStore(Kind::FileFormatException, found->content->name, "the format '" + format + "' is unknown");
}

COtxValue FolderFileStore::MetaData(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    if (!isKnown(details, cache))
        return COtxMap();
    requireName(details.Name());
    const std::string name = details.Name() + std::string(metaDataEnd);
    try {
        return metaDataOf({openBeneath(*folder_, name), name});
    } catch (const COtxValue& failure) {
        if (failure.Type() != OTX::ValueType::Exception || failure.Exception().Kind() != Kind::FileNotFoundException)
            throw;
        return COtxMap();
    }
}

}  // namespace velkotx::host
