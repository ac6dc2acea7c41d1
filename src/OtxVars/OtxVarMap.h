// One scope of the variable store: a table from name to variable cell.
#pragma once

#include <OtxVars/CellStock.h>
#include <OtxVars/NameIndex.h>
#include <otx/value/COtxValue.h>
#include <otx/value/OtxVariable.h>

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace otxns {

// Cells are shared: a copy of a scope holds the same cells under the same names.
//
// Threads: a scope of Access::shared guards its table with `lock`. One of Access::owner is for one thread only, which
// pays for no lock; it turns into a shared one while others may look at it (OtxVars::share). Cells guard themselves.
// No lock is held while a cell is read or written.
//
// A name that is entered must outlive the scope, as the names of the document do; a text is kept by the scope itself.
class OtxVarMap {
public:
    enum class Access { owner, shared };

    explicit OtxVarMap(Access access = Access::owner) : isShared_(access == Access::shared) {}
    OtxVarMap(const OtxVarMap& other);
    OtxVarMap& operator=(const OtxVarMap& other) = delete;
    virtual ~OtxVarMap() = default;

    // Writes the value into the cell of that name; false without one. What the cell throws passes.
    virtual bool Set(const Name& name, const COtxValue& value);
    // The same for a value that the caller gives away; it stays as it is without a cell. For a scope of this very
    // class.
    bool Store(const Name& name, COtxValue& value) {
        if (isShared_) return storeShared(name, value);
        const Entry* const found = entry(name);
        if (found == nullptr) return false;
        found->cell->Store(std::move(value));
        return true;
    }
    // Puts another cell in the place of the one under that name; false without one.
    virtual bool Bind(const Name& name, const std::shared_ptr<OtxVariable>& cell);

    // Enters a cell. An entry of that name stays as it is.
    void Add(const Name& name, std::shared_ptr<OtxVariable> cell) {
        if (isShared_ || entries_.size() >= walkLimit) return addSlowly(name, std::move(cell));
        if (entry(name) == nullptr) entries_.emplace_back(name, std::move(cell));
    }
    void Add(Name&& name, std::shared_ptr<OtxVariable> cell) = delete;
    // The value under that name, unless it is missing or empty.
    bool Get(const Name& name, COtxValue& value) const {
        value = Value(name);
        return value.Type() != OTX::ValueType::Empty;
    }
    // The value under that name, empty if it is missing.
    COtxValue Value(const Name& name) const {
        if (isShared_) return sharedValue(name);
        const Entry* const found = entry(name);
        return found != nullptr ? found->cell->Value() : COtxValue();
    }
    // The cell under that name, else null.
    std::shared_ptr<OtxVariable> Find(const Name& name) const {
        if (isShared_) return sharedFind(name);
        const Entry* const found = entry(name);
        return found != nullptr ? found->cell : nullptr;
    }
    // The same without holding it, by the owner: valid while the entry stands. Null also for a shared scope.
    OtxVariable* ownCell(const Name& name) const noexcept {
        const Entry* const found = isShared_ ? nullptr : entry(name);
        return found != nullptr ? found->cell.get() : nullptr;
    }
    std::map<std::string, std::shared_ptr<OtxVariable>> Snapshot() const;

    // The same by text.
    bool Set(const std::string& name, const COtxValue& value);
    bool Bind(const std::string& name, const std::shared_ptr<OtxVariable>& cell);
    void Add(const std::string& name, std::shared_ptr<OtxVariable> cell);
    bool Get(const std::string& name, COtxValue& value) const;
    std::shared_ptr<OtxVariable> Find(const std::string& name) const;

    // For the stacks, which use one scope for many calls. On the owner's thread only.
    void clear();
    // Gives the cells that nobody else holds to the stock.
    void clear(CellStock& stock) noexcept;
    void copyFrom(const OtxVarMap& other);
    void setAccess(Access access) { isShared_ = access == Access::shared; }

private:
    struct Entry {
        Entry(const Name& key, std::shared_ptr<OtxVariable>&& variable)
            : identity(key.identity()), name(&key), cell(std::move(variable)) {}
        const void* identity;
        const Name* name;
        std::shared_ptr<OtxVariable> cell;
    };
    class Guard;

    // Up to this number of entries a walk over them is faster than the index.
    static constexpr std::size_t walkLimit = 16;

    const Entry* entry(const Name& name) const noexcept {
        if (entries_.size() > walkLimit) return indexed(name);
        const void* const identity = name.identity();
        for (const Entry& candidate : entries_)
            if (candidate.identity == identity) return &candidate;
        return nullptr;
    }
    Entry* entry(const Name& name) noexcept { return const_cast<Entry*>(std::as_const(*this).entry(name)); }
    const Entry* indexed(const Name& name) const noexcept;
    std::shared_ptr<OtxVariable> sharedFind(const Name& name) const;
    COtxValue sharedValue(const Name& name) const;
    bool storeShared(const Name& name, COtxValue& value);
    void addSlowly(const Name& name, std::shared_ptr<OtxVariable>&& cell);
    void insert(const Name& name, std::shared_ptr<OtxVariable>&& cell);

    mutable std::recursive_mutex lock;
    bool isShared_;
    std::vector<Entry> entries_;
    std::unique_ptr<NameIndex<std::uint32_t>> index_;
    std::shared_ptr<std::deque<Name>> ownNames_;
};

}  // namespace otxns
