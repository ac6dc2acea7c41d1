// An interned name: equal names are one object, so that a look-up compares pointers instead of strings.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace otxns {

// Names of variables, procedures and parameters as the document tree and the variable store share them. A Name is a
// counted reference on its text: copying is cheap, comparing is one instruction, and the text lives as long as somebody
// holds the name. Safe on any thread.
class Name {
public:
    Name() noexcept = default;
    explicit Name(std::string_view text) : entry_(intern(text)) {}
    Name(const Name& other) noexcept : entry_(other.entry_) { acquire(); }
    Name(Name&& other) noexcept : entry_(std::exchange(other.entry_, nullptr)) {}
    Name& operator=(Name other) noexcept {
        std::swap(entry_, other.entry_);
        return *this;
    }
    ~Name() { release(); }

    // The name of that text if anybody holds one; nothing else can be called so then.
    static std::optional<Name> find(std::string_view text);

    const std::string& text() const noexcept { return entry_ != nullptr ? entry_->text : emptyText(); }
    bool empty() const noexcept { return entry_ == nullptr; }

    friend bool operator==(const Name& left, const Name& right) noexcept { return left.entry_ == right.entry_; }

    // Remembers the names that the calling thread interns, as long as this lives: documents use the same few over and
    // over. One at a time counts.
    class Memory {
    public:
        Memory();
        ~Memory();
        Memory(const Memory&) = delete;
        Memory& operator=(const Memory&) = delete;

    private:
        friend class Name;
        static constinit thread_local Memory* current __attribute__((tls_model("initial-exec")));
        Memory* const outer_;
        std::unique_ptr<Name[]> recent_;
    };

    // For tables keyed by identity.
    const void* identity() const noexcept { return entry_; }

private:
    struct Entry {
        explicit Entry(std::string_view name) : text(name) {}
        std::atomic<std::size_t> references{1};
        const std::string text;
    };
    friend class NameTable;

    explicit Name(Entry* entry) noexcept : entry_(entry) {}
    static Entry* intern(std::string_view text);
    static Entry* internIn(std::size_t hash, std::string_view text);
    static void discard(Entry* entry) noexcept;
    static const std::string& emptyText() noexcept;

    void acquire() const noexcept {
        if (entry_ != nullptr) entry_->references.fetch_add(1, std::memory_order_relaxed);
    }
    void release() noexcept;

    Entry* entry_ = nullptr;
};

}  // namespace otxns
