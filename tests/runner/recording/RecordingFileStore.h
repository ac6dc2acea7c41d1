// The host's files.
#pragma once

#include "CallRecorder.h"

#include <otx/host/HvtFileStore.h>
#include <store/FolderFileStore.h>

#include <filesystem>

namespace documents {

// Records what it hands on to the reference host's store over a folder.
class RecordingFileStore : public HvtFileStore {
public:
    RecordingFileStore(CallRecorder& recorder, const std::filesystem::path& folder);

    std::shared_ptr<Hvt::Fs::Stored> Open(const Hvt::Fs::FileDetails& details, const std::string& cache) override;
    std::shared_ptr<std::istream> Decode(std::shared_ptr<Hvt::Fs::Stored> stored, const std::string& format) override;
    COtxValue MetaData(const Hvt::Fs::FileDetails& details, const std::string& cache) override;

private:
    CallRecorder& recorder_;
    velkotx::host::FolderFileStore store_;
};

}  // namespace documents
