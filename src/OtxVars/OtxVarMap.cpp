// Look-up and change of one scope.
#include <OtxVars/OtxVarMap.h>

#include <utility>

namespace otxns {

// Holds the scope's lock if the scope is shared.
class OtxVarMap::Guard {
public:
    explicit Guard(const OtxVarMap& map) : lock_(map.isShared_ ? &map.lock : nullptr) {
        if (lock_ != nullptr) lock_->lock();
    }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard() {
        if (lock_ != nullptr) lock_->unlock();
    }

private:
    std::recursive_mutex* lock_;
};

OtxVarMap::OtxVarMap(const OtxVarMap& other) : isShared_(other.isShared_) {
    copyFrom(other);
}

bool OtxVarMap::Set(const Name& name, const COtxValue& value) {
    if (isShared_) {
        const auto cell = sharedFind(name);
        if (cell == nullptr) return false;
        *cell = value;
        return true;
    }
    const Entry* const found = entry(name);
    if (found == nullptr) return false;
    *found->cell = value;
    return true;
}

bool OtxVarMap::storeShared(const Name& name, COtxValue& value) {
    const auto cell = sharedFind(name);
    if (cell == nullptr) return false;
    cell->Store(std::move(value));
    return true;
}

bool OtxVarMap::Bind(const Name& name, const std::shared_ptr<OtxVariable>& cell) {
    std::shared_ptr<OtxVariable> former = cell;
    const Guard guard(*this);
    Entry* const found = entry(name);
    if (found == nullptr) return false;
    // The former cell dies after the lock is released.
    found->cell.swap(former);
    return true;
}

void OtxVarMap::addSlowly(const Name& name, std::shared_ptr<OtxVariable>&& cell) {
    const Guard guard(*this);
    if (entry(name) == nullptr) insert(name, std::move(cell));
}

void OtxVarMap::Add(const std::string& name, std::shared_ptr<OtxVariable> cell) {
    const Guard guard(*this);
    const Name key(name);
    if (entry(key) != nullptr) return;
    if (ownNames_ == nullptr) ownNames_ = std::make_shared<std::deque<Name>>();
    insert(ownNames_->emplace_back(key), std::move(cell));
}

COtxValue OtxVarMap::sharedValue(const Name& name) const {
    const auto cell = sharedFind(name);
    return cell != nullptr ? cell->Value() : COtxValue();
}

std::shared_ptr<OtxVariable> OtxVarMap::sharedFind(const Name& name) const {
    const Guard guard(*this);
    const Entry* const found = entry(name);
    return found != nullptr ? found->cell : nullptr;
}

std::map<std::string, std::shared_ptr<OtxVariable>> OtxVarMap::Snapshot() const {
    const Guard guard(*this);
    std::map<std::string, std::shared_ptr<OtxVariable>> cells;
    for (const Entry& present : entries_) cells.emplace(present.name->text(), present.cell);
    return cells;
}

bool OtxVarMap::Set(const std::string& name, const COtxValue& value) {
    return Set(Name(name), value);
}

bool OtxVarMap::Bind(const std::string& name, const std::shared_ptr<OtxVariable>& cell) {
    return Bind(Name(name), cell);
}

// A text that nobody holds as a name stands in no scope.
bool OtxVarMap::Get(const std::string& name, COtxValue& value) const {
    const auto key = Name::find(name);
    return key && Get(*key, value);
}

std::shared_ptr<OtxVariable> OtxVarMap::Find(const std::string& name) const {
    const auto key = Name::find(name);
    return key ? Find(*key) : nullptr;
}

void OtxVarMap::clear() {
    const Guard guard(*this);
    entries_.clear();
    index_.reset();
    ownNames_.reset();
}

void OtxVarMap::clear(CellStock& stock) noexcept {
    if (isShared_) return clear();
    for (Entry& present : entries_) stock.give(std::move(present.cell));
    entries_.clear();
    index_.reset();
    ownNames_.reset();
}

void OtxVarMap::copyFrom(const OtxVarMap& other) {
    const Guard guard(other);
    entries_ = other.entries_;
    index_ = other.index_ != nullptr ? std::make_unique<NameIndex<std::uint32_t>>(*other.index_) : nullptr;
    ownNames_ = other.ownNames_;
}

const OtxVarMap::Entry* OtxVarMap::indexed(const Name& name) const noexcept {
    const std::uint32_t* const place = index_->find(name);
    // An insertion that failed for want of memory leaves a place in the index that holds nothing or another name.
    if (place == nullptr || *place >= entries_.size()) return nullptr;
    const Entry& found = entries_[*place];
    return found.identity == name.identity() ? &found : nullptr;
}

void OtxVarMap::insert(const Name& name, std::shared_ptr<OtxVariable>&& cell) {
    const auto place = static_cast<std::uint32_t>(entries_.size());
    if (place >= walkLimit) {
        if (index_ == nullptr) {
            auto index = std::make_unique<NameIndex<std::uint32_t>>();
            for (std::uint32_t i = 0; i < place; ++i) index->assign(*entries_[i].name, i);
            index_ = std::move(index);
        }
        index_->assign(name, place);
    }
    entries_.emplace_back(name, std::move(cell));
}

}  // namespace otxns
