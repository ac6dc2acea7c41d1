// The procedures that a run can call, by name.
#pragma once

#include <OtxVars/NameIndex.h>
#include <schema/core.h>

#include <memory>
#include <string>
#include <vector>

namespace otxns {

// Immutable once it is published, so that any thread may look up without a lock.
class ProcedureTable {
public:
    struct Entry {
        const Name* name = nullptr;
        const ProcedureRealisation* realisation = nullptr;
    };

    // Enters the procedures of a document that have a name and a realisation; the last of a name wins, also over those
    // that are in the table. The document lives as long as the table.
    void add(const std::shared_ptr<const Otx>& document);
    bool holds(const std::shared_ptr<const Otx>& document) const;

    // Null for a name that isn't there. The comparison is of the whole name.
    const Entry* find(const Name& name) const noexcept { return index_.find(name); }
    const Entry* find(const std::string& name) const;
    bool empty() const noexcept { return index_.size() == 0; }

private:
    NameIndex<Entry> index_;
    std::vector<std::shared_ptr<const Otx>> documents_;
};

}  // namespace otxns
