// The host's files.
#include "RecordingFileStore.h"

#include "Argument.h"

#include <utility>

namespace documents {

namespace {

std::vector<COtxValue> arguments(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    return {asArgument(details.Name()), asArgument(details.Type()), asArgument(cache)};
}

}  // namespace

RecordingFileStore::RecordingFileStore(CallRecorder& recorder, const std::filesystem::path& folder)
    : recorder_(recorder), store_(folder.string()) {}

std::shared_ptr<Hvt::Fs::Stored> RecordingFileStore::Open(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    recorder_.call("FileStore", "Open", arguments(details, cache));
    return store_.Open(details, cache);
}

std::shared_ptr<std::istream> RecordingFileStore::Decode(std::shared_ptr<Hvt::Fs::Stored> stored, const std::string& format) {
    recorder_.call("FileStore", "Decode", {asArgument(format)});
    return store_.Decode(std::move(stored), format);
}

COtxValue RecordingFileStore::MetaData(const Hvt::Fs::FileDetails& details, const std::string& cache) {
    recorder_.call("FileStore", "MetaData", arguments(details, cache));
    return store_.MetaData(details, cache);
}

}  // namespace documents
