// The variable store of a run: the globals, the host's context variables, and the frames of each thread.
#pragma once

#include <OtxVars/OtxContextVarMap.h>
#include <OtxVars/OtxVarMap.h>
#include <OtxVars/ThreadStack.h>
#include <otx/value/COtxValue.h>
#include <otx/value/OtxVariable.h>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace otxns {

// Owned by OtxContext. All operations work on the calling thread's stack unless a thread is named, and may be called
// from any thread. A look-up asks the top frame, then the globals; nothing of the callers' frames. A thread without a
// frame goes straight to the globals. A name that is found nowhere raises InvalidReferenceException with the name as
// its text; a stack that is shallower than it must be raises OTXRuntimeException, "Invalid stack pointer".
//
// Names as texts are for the host's side and for tests; a run uses the keys of the document.
class OtxVars {
public:
    OtxVars();
    OtxVars(const OtxVars&) = delete;
    OtxVars& operator=(const OtxVars&) = delete;

    // Begins the calling thread's stack, if it has none, and appends a copy of the parent's top frame if there is a
    // parent. The parent is parked, or shares its stack, meanwhile.
    void newStack(std::thread::id parent = {});
    // Gives what was in it, so that the caller lets the variables die where no lock is held.
    using EndedStack = std::map<std::thread::id, ThreadStack>::node_type;
    EndedStack deleteStack();

    // The name outlives the frame.
    void push(const Name& name);
    void push(Name&& name) = delete;
    void push(const std::string& name);
    void pop();
    std::size_t StackDepth() const;
    // Pops until that many frames are left.
    void Unwind(std::size_t depth);

    // The value of a variable. One without a value counts as missing.
    COtxValue Get(const Name& name) const {
        const OtxVarMap* const frame = top();
        COtxValue value = frame != nullptr ? frame->Value(name) : COtxValue();
        if (value.Type() == OTX::ValueType::Empty) [[unlikely]]
            value = globalValue(name);
        return value;
    }
    COtxValue Get(const std::string& name) const { return Get(Name(name)); }

    // The number of a variable of the calling thread's frame that holds an Integer. False for all else: Get knows.
    bool GetInteger(const Name& name, long long& number) const {
        const OtxVarMap* const frame = top();
        const OtxVariable* const cell = frame != nullptr ? frame->ownCell(name) : nullptr;
        return cell != nullptr && cell->ReadInteger(number);
    }
    // The same for an Integer that no other handle shares and that is like COtxInt(number).
    bool GetSoleInteger(const Name& name, long long& number) const {
        const OtxVarMap* const frame = top();
        const OtxVariable* const cell = frame != nullptr ? frame->ownCell(name) : nullptr;
        return cell != nullptr && cell->ReadSoleInteger(number);
    }

    std::shared_ptr<OtxVariable> GetVariable(const Name& name) const {
        const OtxVarMap* const frame = top();
        std::shared_ptr<OtxVariable> cell = frame != nullptr ? frame->Find(name) : nullptr;
        if (cell == nullptr) [[unlikely]]
            cell = globalVariable(name);
        return cell;
    }
    std::shared_ptr<OtxVariable> GetVariable(const std::string& name) const { return GetVariable(Name(name)); }

    void Set(const Name& name, const COtxValue& value);
    void Set(const Name& name, COtxValue&& value) {
        OtxVarMap* const frame = top();
        if (frame == nullptr || !frame->Store(name, value)) storeGlobal(name, value);
    }
    void Set(const std::string& name, const COtxValue& value) { Set(Name(name), value); }

    // Set for COtxInt(number).
    void SetInteger(const Name& name, long long number) {
        const OtxVarMap* const frame = top();
        if (OtxVariable* const cell = frame != nullptr ? frame->ownCell(name) : nullptr)
            cell->StoreInteger(number);
        else
            setInteger(name, number);
    }

    // Puts another cell under the name.
    void Bind(const Name& name, const std::shared_ptr<OtxVariable>& cell);
    void Bind(const std::string& name, const std::shared_ptr<OtxVariable>& cell) { Bind(Name(name), cell); }

    // Where a declaration enters its variable: the globals or the calling thread's top frame.
    OtxVarMap& Scope(bool global);
    // Enters a new plain cell in the calling thread's top frame. A name that is there keeps its cell.
    void Declare(const Name& name, COtxValue&& value);
    void DeclareInteger(const Name& name, long long number);
    // Gives back a cell of a frame that is gone, for the next declaration.
    void Recycle(std::shared_ptr<OtxVariable> cell) { required().stock().give(std::move(cell)); }

    // The names of a thread's frames, bottom first; empty for a thread without a stack. Another thread's stack may be
    // looked at while its owner is parked or shares it.
    std::vector<std::string> FrameNames(std::thread::id thread) const;
    OtxVarMap& TopFrame(std::thread::id thread) const;
    // Whether others may look at the calling thread's stack while it runs. Both only while nobody looks at it.
    void shareStack();
    void unshareStack();

    OtxVarMap& Globals() { return globals; }
    OtxContextVarMap& ContextVars() { return contextVars; }

private:
    // The stack that the calling thread used last, by the serial of its store. A serial is never used again, so that an
    // entry of a store that is gone can't match.
    struct Recent {
        std::uint64_t store;
        ThreadStack* stack;
    };
    static constinit thread_local Recent recent __attribute__((tls_model("initial-exec")));

    // The calling thread's stack, else null.
    ThreadStack* own() const { return recent.store == serial_ ? recent.stack : findOwn(); }
    ThreadStack* findOwn() const;
    ThreadStack& required() const;
    OtxVarMap* top() const {
        const ThreadStack* const stack = own();
        return stack != nullptr ? stack->top() : nullptr;
    }
    COtxValue globalValue(const Name& name) const;
    std::shared_ptr<OtxVariable> globalVariable(const Name& name) const;
    void setInteger(const Name& name, long long number);
    template <class Store, class Make>
    void declare(const Name& name, Store store, Make make);
    void storeGlobal(const Name& name, COtxValue& value);

    const std::uint64_t serial_;
    OtxVarMap globals{OtxVarMap::Access::shared};
    OtxContextVarMap contextVars;

    // Guards the two maps below, not what the stacks hold.
    mutable std::recursive_mutex lock;
    mutable std::map<std::thread::id, ThreadStack> stacks;
    std::map<std::string, Name> ownNames_;
};

}  // namespace otxns
