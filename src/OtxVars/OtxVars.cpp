// The variable store: stacks by thread, and the look-up order of the language.
#include <OtxVars/Cell.h>
#include <OtxVars/OtxVars.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <velkotx/Exceptions.h>

#include <atomic>
#include <typeinfo>

namespace otxns {

namespace {

std::uint64_t nextSerial() {
    static constinit std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

[[noreturn]] void raiseInvalidStack() {
    throw velkotx::OTXRuntimeException("InternalError", "Invalid stack pointer");
}

[[noreturn]] void raiseUnknown(const Name& name) {
    throw COtxException(OTX::Exceptions_e::InvalidReferenceException, name.text());
}

}  // namespace

constinit thread_local OtxVars::Recent OtxVars::recent{};

OtxVars::OtxVars() : serial_(nextSerial()) {}

void OtxVars::newStack(std::thread::id parent) {
    OTX_TRACE(4, Hvt::className(typeid(*this).name()));
    const std::lock_guard guard(lock);
    ThreadStack& stack = stacks[std::this_thread::get_id()];
    recent = {serial_, &stack};
    if (parent == std::thread::id()) return;
    const auto origin = stacks.find(parent);
    if (origin == stacks.end() || !stack.pushCopyOf(origin->second)) raiseInvalidStack();
}

OtxVars::EndedStack OtxVars::deleteStack() {
    OTX_TRACE(4, Hvt::className(typeid(*this).name()));
    const std::lock_guard guard(lock);
    recent = {};
    return stacks.extract(std::this_thread::get_id());
}

void OtxVars::push(const Name& name) {
    OTX_TRACE(4, "Enter: " << name.text());
    required().push(name);
}

void OtxVars::push(const std::string& name) {
    const std::lock_guard guard(lock);
    push(ownNames_.try_emplace(name, name).first->second);
}

void OtxVars::pop() {
    ThreadStack& stack = required();
    if (stack.depth() == 0) return;
    OTX_TRACE(4, "Exit: " << stack.topName().text());
    stack.pop();
}

std::size_t OtxVars::StackDepth() const {
    const ThreadStack* const stack = own();
    return stack != nullptr ? stack->depth() : 0;
}

void OtxVars::Unwind(std::size_t depth) {
    if (StackDepth() < depth) raiseInvalidStack();
    while (StackDepth() > depth) pop();
}

std::shared_ptr<OtxVariable> OtxVars::globalVariable(const Name& name) const {
    if (auto cell = globals.Find(name)) return cell;
    raiseUnknown(name);
}

void OtxVars::Set(const Name& name, const COtxValue& value) {
    // A frame is no derived class, so that the call needn't be virtual.
    if (OtxVarMap* const frame = top(); frame != nullptr && frame->OtxVarMap::Set(name, value)) return;
    if (!globals.Set(name, value)) raiseUnknown(name);
}

void OtxVars::setInteger(const Name& name, long long number) {
    Set(name, COtxInt(number));
}

void OtxVars::storeGlobal(const Name& name, COtxValue& value) {
    if (!globals.Store(name, value)) raiseUnknown(name);
}

void OtxVars::Bind(const Name& name, const std::shared_ptr<OtxVariable>& cell) {
    if (OtxVarMap* const frame = top(); frame != nullptr && frame->OtxVarMap::Bind(name, cell)) return;
    if (!globals.Bind(name, cell)) raiseUnknown(name);
}

OtxVarMap& OtxVars::Scope(bool global) {
    if (global) return globals;
    OtxVarMap* const frame = top();
    if (frame == nullptr) raiseInvalidStack();
    return *frame;
}

// A cell of an ended call, else a new one.
template <class Store, class Make>
void OtxVars::declare(const Name& name, Store store, Make make) {
    ThreadStack& stack = required();
    OtxVarMap* const frame = stack.top();
    if (frame == nullptr) raiseInvalidStack();
    std::shared_ptr<OtxVariable> cell = stack.stock().take();
    if (cell != nullptr) [[likely]]
        store(*cell);
    else
        cell = makeCell<OtxVariable>(make());
    frame->Add(name, std::move(cell));
}

void OtxVars::Declare(const Name& name, COtxValue&& value) {
    declare(name, [&](OtxVariable& cell) { cell.Store(std::move(value)); }, [&] { return std::move(value); });
}

void OtxVars::DeclareInteger(const Name& name, long long number) {
    declare(name, [&](OtxVariable& cell) { cell.StoreInteger(number); }, [&] { return COtxInt(number); });
}

std::vector<std::string> OtxVars::FrameNames(std::thread::id thread) const {
    const std::lock_guard guard(lock);
    const auto found = stacks.find(thread);
    return found != stacks.end() ? found->second.names() : std::vector<std::string>();
}

OtxVarMap& OtxVars::TopFrame(std::thread::id thread) const {
    const std::lock_guard guard(lock);
    const auto found = stacks.find(thread);
    OtxVarMap* const frame = found != stacks.end() ? found->second.sharedTop() : nullptr;
    if (frame == nullptr) raiseInvalidStack();
    return *frame;
}

void OtxVars::shareStack() {
    required().share();
}

void OtxVars::unshareStack() {
    required().unshare();
}

ThreadStack* OtxVars::findOwn() const {
    const std::lock_guard guard(lock);
    const auto found = stacks.find(std::this_thread::get_id());
    if (found == stacks.end()) return nullptr;
    recent = {serial_, &found->second};
    return recent.stack;
}

ThreadStack& OtxVars::required() const {
    ThreadStack* const stack = own();
    if (stack == nullptr) raiseInvalidStack();
    return *stack;
}

COtxValue OtxVars::globalValue(const Name& name) const {
    COtxValue value = globals.Value(name);
    if (value.Type() == OTX::ValueType::Empty) raiseUnknown(name);
    return value;
}

}  // namespace otxns
