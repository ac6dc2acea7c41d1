// A store of values in one SQLite file.
#pragma once

#include <otx/host/PersistenceHost.h>

#include <memory>
#include <string>

namespace velkotx::host {

// Each Save is a transaction of its own; once it has returned, no end of the process loses the value. Several stores, in one
// process or in several, may have one file open; the last Save of a name wins. Owned through a shared pointer by the host and
// by the Sequencers that it is given to. Lanes may call Load and Save at once: they take turns. A call waits for the file up to
// 10 seconds while another process holds it. A process that forks must not use a store that it opened before the fork.
class SqlitePersistence : public PersistenceHost {
public:
    // Makes the file if it isn't there. Throws std::runtime_error for a file that can't be opened or written, is none of ours, is
    // of a newer version or is damaged; its text doesn't name the file.
    explicit SqlitePersistence(const std::string& file);
    ~SqlitePersistence() override;

    // Throws COtxException, kind 28, with the cause.
    bool Load(const std::string& name, COtxValue& value) override;
    // Throws COtxException, kind 29, with the cause, for a value that can't be stored too; the former value stays then. Since a
    // sequence doesn't see the cause, it is a line of level 0 in the trace.
    void Save(const std::string& name, const COtxValue& value) override;

private:
    class Connection;

    const std::unique_ptr<Connection> connection_;
};

}  // namespace velkotx::host
