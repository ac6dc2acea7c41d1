// A variable cell.
#include <otx/value/OtxVariable.h>

#include <otx/event/IEventSource.h>
#include <otx/value/COtxInt.h>

#include <sched.h>
#include <sys/single_threaded.h>

#include <algorithm>
#include <iterator>
#include <typeinfo>
#include <utility>
#include <vector>

#include "NumberValues.h"
#include "TextValues.h"
#include "event/EventSource.h"

namespace {

#if defined(__SANITIZE_THREAD__)
constexpr bool watchedForRaces = true;
#elif defined(__has_feature)
constexpr bool watchedForRaces = __has_feature(thread_sanitizer);
#else
constexpr bool watchedForRaces = false;
#endif

}  // namespace

// In this file since every write of an integer asks it. The fence orders what other threads read through handles that they
// have given up before the change. The thread sanitizer doesn't know fences, but the counting of handles.
bool COtxValue::isSoleInteger() const noexcept {
    if (!isNative(COtxValueBehaviour::Native::Integer) || behaviour_.use_count() != 1) return false;
    if constexpr (watchedForRaces)
        static_cast<void>(std::shared_ptr<COtxValueBehaviour>(behaviour_));
    else
        std::atomic_thread_fence(std::memory_order_acquire);
    return !behaviour_->OtxJSON() && static_cast<const COtxIntBehaviour&>(*behaviour_).Radix() == COtxInt::Decimal;
}

// The attached sources, replaced as a whole, so that a delivery can walk them without the lock.
struct OtxVariable::Sources {
    struct Source {
        COtxValue name;
        COtxValue source;
    };
    std::vector<Source> attached;

    // A source that is closed, or that only the variable still knows, can't be seen to fire; a loop that attaches a new
    // one in each turn must not pile them up.
    static bool isAlive(const Source& one) {
        if (one.source.GetBehaviourReference().use_count() == 1) return false;
        const auto source = otx::sourceBehind(one.source);
        return source == nullptr || !source->isClosed();
    }
};

// Spins, since the lock is held for a few instructions. A process with one thread has nobody to lock out.
class OtxVariable::Guard {
public:
    explicit Guard(const OtxVariable& variable) : lock_(&variable.cellLock_) {
        if (__libc_single_threaded != 0) return;
        if (lock_->exchange(true, std::memory_order_acquire)) [[unlikely]]
            wait(*lock_);
    }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard() { release(); }

    void release() noexcept {
        if (lock_ != nullptr) lock_->store(false, std::memory_order_release);
        lock_ = nullptr;
    }

private:
    [[gnu::noinline]] static void wait(std::atomic<bool>& lock) noexcept {
        constexpr int spins = 64;
        int tries = 0;
        while (lock.exchange(true, std::memory_order_acquire)) {
            if (++tries % spins == 0) sched_yield();
        }
    }

    std::atomic<bool>* lock_;
};

OtxVariable::~OtxVariable() = default;

// The class itself, whose writes nobody overrides. A type information that isn't one object only costs the virtual call.
bool OtxVariable::isPlain() const noexcept { return &typeid(*this) == &typeid(OtxVariable); }

void OtxVariable::replace(COtxValue&& value) {
    Guard guard(*this);
    value_.exchange(value);
    if (sources_ != nullptr) [[unlikely]]
        announce(guard);
}

// With the guard of the write that is to be told of: the delivery is of that write's value.
void OtxVariable::announce(Guard& guard) {
    const std::shared_ptr<const Sources> sources = sources_;
    const COtxValue delivered = value_;
    guard.release();
    for (const auto& [name, source] : sources->attached) source.EventSource().Changed(name, delivered);
    if (!std::all_of(sources->attached.begin(), sources->attached.end(), Sources::isAlive)) [[unlikely]]
        dropDead(sources);
}

void OtxVariable::dropDead(const std::shared_ptr<const Sources>& delivered) {
    auto left = std::make_shared<Sources>();
    std::copy_if(delivered->attached.begin(), delivered->attached.end(), std::back_inserter(left->attached),
                 Sources::isAlive);
    std::shared_ptr<const Sources> replacement;
    if (!left->attached.empty()) replacement = std::move(left);
    const Guard guard(*this);
    // Another write or an attaching came between: it looks for itself.
    if (sources_ == delivered) sources_.swap(replacement);
}

void OtxVariable::Set(const COtxValue& value) { replace(COtxValue(value)); }

void OtxVariable::Store(COtxValue&& value) {
    // A subclass sees every write through its Set.
    if (isPlain()) [[likely]]
        replace(std::move(value));
    else
        Set(value);
}

void OtxVariable::StoreInteger(long long number) {
    if (!isPlain() || !overwriteInteger(number)) [[unlikely]]
        Store(otx::makeInteger(number));
}

bool OtxVariable::overwriteInteger(long long number) {
    const Guard guard(*this);
    // The only handle stands in this cell, and the lock keeps others from copying it.
    if (sources_ != nullptr || !value_.isSoleInteger()) return false;
    value_.overwriteSoleInteger(number);
    return true;
}

COtxValue OtxVariable::Value() const {
    const Guard guard(*this);
    return value_;
}

bool OtxVariable::ReadInteger(long long& number) const {
    const Guard guard(*this);
    if (!value_.isNative(COtxValueBehaviour::Native::Integer)) return false;
    number = value_.integer();
    return true;
}

bool OtxVariable::ReadSoleInteger(long long& number) const {
    const Guard guard(*this);
    if (!value_.isSoleInteger()) return false;
    number = value_.integer();
    return true;
}

bool OtxVariable::Retire() noexcept { return isPlain() && (holdsSoleInteger() || letGo()); }

bool OtxVariable::holdsSoleInteger() const noexcept {
    const Guard guard(*this);
    return sources_ == nullptr && value_.isSoleInteger();
}

bool OtxVariable::letGo() noexcept {
    // Dies after the lock is released.
    COtxValue gone;
    const Guard guard(*this);
    if (sources_ != nullptr) return false;
    value_.exchange(gone);
    return true;
}

void OtxVariable::AddEventSource(const std::string& name, const COtxValue& source) {
    static_cast<void>(source.EventSource());
    const COtxValue text = otx::makeText(name);
    auto extended = std::make_shared<Sources>();
    std::shared_ptr<const Sources> old;
    for (;;) {
        {
            const Guard guard(*this);
            old = sources_;
        }
        extended->attached.clear();
        if (old != nullptr)
            std::copy_if(old->attached.begin(), old->attached.end(), std::back_inserter(extended->attached),
                         Sources::isAlive);
        extended->attached.push_back({text, source});
        const Guard guard(*this);
        if (sources_ != old) continue;
        sources_ = extended;
        return;
    }
}
