// A variable cell.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <atomic>
#include <memory>
#include <string>

// Holds one value; shared by pointer between the scopes that see the variable, and by who keeps one of those pointers. With a
// weak pointer alone one may find another variable of the document in its place. Value, Set, Store, StoreInteger, ReadInteger,
// ReadSoleInteger and AddEventSource may be called from any threads at once. No lock is held while an event is delivered or an
// old value is destroyed.
class OTX_API OtxVariable {
public:
    explicit OtxVariable(const COtxValue& value) : value_(value) {}
    explicit OtxVariable(COtxValue&& value) noexcept : value_(std::move(value)) {}
    OtxVariable(const OtxVariable&) = delete;
    virtual ~OtxVariable();

    // Replaces the value and delivers an event to every attached source, on the calling thread. Subclasses override it
    // and see every write.
    virtual void Set(const COtxValue& value);

    // Set for a value that the caller gives away; what its handle holds afterwards is not told.
    void Store(COtxValue&& value);

    // Store(COtxInt(number)). Changes the Integer that is there where no other handle could tell, so that counting makes no
    // new values; a weak pointer on a value's behaviour doesn't count as a handle.
    void StoreInteger(long long number);

    // Goes through the virtual Set. Gives its argument.
    const COtxValue& operator=(const COtxValue& value) {
        Set(value);
        return value;
    }
    OtxVariable& operator=(const OtxVariable&) = delete;

    // The value in place: valid until the next write, so only where no other thread writes.
    const COtxValue& Get() const noexcept { return value_; }

    // A copy of the handle, safe beside writes of other threads.
    COtxValue Value() const;

    // The number if the value is the library's own Integer; else false. Safe beside writes of other threads.
    bool ReadInteger(long long& number) const;
    // The same, only for an Integer that no other handle shares and that is like one made by COtxInt(number).
    bool ReadSoleInteger(long long& number) const;

    // Lets go of the value, save for an Integer that can be changed in place, so that the cell may serve as a new variable; for
    // the one who holds the cell alone. False, and nothing done, for a cell of a subclass or with event sources.
    bool Retire() noexcept;

    // Attaches an event source that monitors the variable, until the variable dies: every write delivers an event with
    // this name and the new value. Sources that are closed, or that nobody else holds, are dropped at the next delivery.
    // Throws kind 5 for a value that is no event source.
    void AddEventSource(const std::string& name, const COtxValue& source);

private:
    struct Sources;
    class Guard;

    bool isPlain() const noexcept;
    void replace(COtxValue&& value);
    bool overwriteInteger(long long number);
    bool holdsSoleInteger() const noexcept;
    bool letGo() noexcept;
    void announce(Guard& guard);
    void dropDead(const std::shared_ptr<const Sources>& delivered);

    COtxValue value_;
    std::shared_ptr<const Sources> sources_;
    // Guards value_ and sources_; held for a few instructions only.
    mutable std::atomic<bool> cellLock_{false};
};
