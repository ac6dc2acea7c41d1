// A store of files over a folder.
#pragma once

#include <otx/host/HvtFileStore.h>

#include <memory>
#include <string>

namespace velkotx::host {

class Descriptor;

// The files of the folder and of those below it, under names such as "limits/engine.txt". No name leads out of the folder, and
// no symbolic link is followed, whatever changes in the folder meanwhile. Metadata of a file NAME stands in NAME.meta.json, a
// JSON object, and is itself no file of the store; formats are "" and "gzip". Only reads. Owned through a shared pointer by the
// host and by the Sequencers that it is given to; any thread may call it. Failures are COtxExceptions of the kinds 35 to 41.
class FolderFileStore : public HvtFileStore {
public:
    // Throws std::runtime_error, without the folder's name, for what is no folder or can't be entered.
    explicit FolderFileStore(const std::string& folder);
    ~FolderFileStore() override;

    // Knows the type "FILE" and the default cache only; any other is a file that isn't there.
    std::shared_ptr<Hvt::Fs::Stored> Open(const Hvt::Fs::FileDetails& details, const std::string& cache) override;
    // The stream keeps the file open and can seek; the content is unpacked as it is read, with a constant need of memory. Back in
    // a packed file it begins anew.
    std::shared_ptr<std::istream> Decode(std::shared_ptr<Hvt::Fs::Stored> stored, const std::string& format) override;
    COtxValue MetaData(const Hvt::Fs::FileDetails& details, const std::string& cache) override;

private:
    const std::unique_ptr<const Descriptor> folder_;
};

}  // namespace velkotx::host
