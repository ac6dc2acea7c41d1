// The table of interned names, in shards so that documents load side by side.
#include <schema/Name.h>

#include <array>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace otxns {

// Guarded by the shard's own lock: its map. An entry whose count reached zero is erased only under that lock, after a
// second look, since a look-up may have revived it.
class NameTable {
public:
    struct Shard {
        std::mutex tableLock;
        std::unordered_map<std::string_view, std::unique_ptr<Name::Entry>> entries;
    };

    // Never destroyed: names in static objects outlive any order of destruction.
    static NameTable& instance() {
        static NameTable* const table = new NameTable;
        return *table;
    }

    Shard& shardOf(std::size_t hash) { return shards_[hash % shards_.size()]; }
    Shard& shardOf(std::string_view text) { return shardOf(std::hash<std::string_view>{}(text)); }

private:
    std::array<Shard, 16> shards_;
};

namespace {

constexpr std::size_t remembered = 256;

}  // namespace

constinit thread_local Name::Memory* Name::Memory::current = nullptr;

Name::Memory::Memory() : outer_(current), recent_(new Name[remembered]) {
    current = this;
}

Name::Memory::~Memory() {
    current = outer_;
}

Name::Entry* Name::intern(std::string_view text) {
    if (text.empty()) return nullptr;
    const std::size_t hash = std::hash<std::string_view>{}(text);
    if (Memory::current == nullptr) return internIn(hash, text);
    // By other bits than those that choose the shard.
    Name& recent = Memory::current->recent_[hash / 16 % remembered];
    if (recent.entry_ == nullptr || recent.entry_->text != text) recent = Name(internIn(hash, text));
    recent.acquire();
    return recent.entry_;
}

Name::Entry* Name::internIn(std::size_t hash, std::string_view text) {
    auto& shard = NameTable::instance().shardOf(hash);
    const std::lock_guard guard(shard.tableLock);
    if (const auto found = shard.entries.find(text); found != shard.entries.end()) {
        found->second->references.fetch_add(1, std::memory_order_relaxed);
        return found->second.get();
    }
    auto made = std::make_unique<Entry>(text);
    Entry* const entry = made.get();
    shard.entries.emplace(entry->text, std::move(made));
    return entry;
}

std::optional<Name> Name::find(std::string_view text) {
    if (text.empty()) return Name();
    auto& shard = NameTable::instance().shardOf(text);
    const std::lock_guard guard(shard.tableLock);
    const auto found = shard.entries.find(text);
    if (found == shard.entries.end()) return std::nullopt;
    found->second->references.fetch_add(1, std::memory_order_relaxed);
    return Name(found->second.get());
}

void Name::release() noexcept {
    if (entry_ == nullptr) return;
    // All but the last holder leave without the lock.
    std::size_t count = entry_->references.load(std::memory_order_relaxed);
    while (count > 1) {
        if (entry_->references.compare_exchange_weak(count, count - 1, std::memory_order_release,
                                                     std::memory_order_relaxed))
            return;
    }
    discard(entry_);
}

void Name::discard(Entry* entry) noexcept {
    auto& shard = NameTable::instance().shardOf(entry->text);
    const std::lock_guard guard(shard.tableLock);
    if (entry->references.fetch_sub(1, std::memory_order_acq_rel) == 1) shard.entries.erase(entry->text);
}

const std::string& Name::emptyText() noexcept {
    static const std::string empty;
    return empty;
}

}  // namespace otxns
