// The way into lists, maps and parameter containers.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/IntegerTerms.h>
#include <SmallVector.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxList.h>
#include <otx/value/IString.h>
#include <velkotx/Exceptions.h>

#include <map>
#include <mutex>
#include <sstream>
#include <utility>
#include <vector>

namespace otxns {

namespace {

using Steps = SmallVector<COtxValue, 4>;

enum Kind : std::size_t { byName = 1, byIndex = 2 };

// In document order, whatever the kinds.
void evaluateSteps(const Path& path, OtxContext& context, Steps& steps) {
    for (const auto& record : path.order()) {
        if (record.id == byName)
            steps.push_back(evaluate(path.stepByName()[record.index], context));
        else if (record.id == byIndex)
            steps.push_back(evaluate(path.stepByIndex()[record.index], context));
        else
            steps.push_back(steps.empty() ? COtxValue() : steps.back());
    }
}

COtxValue asList(const Steps& steps) {
    return COtxList(std::vector<COtxValue>(steps.begin(), steps.end()));
}

[[noreturn, gnu::cold]] void raiseNoSlot(const Steps& steps, const COtxValue& step, const char* container,
                                         const Name& variable, const char* slot) {
    const std::string path = asList(steps).ToJSON().String();
    const std::string last = step.ToString().String();
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "Cannot resolve path " + path + " for " + container +
                                                                     " " + variable.text() + ". Does not contain " +
                                                                     slot + " " + last);
}

[[noreturn, gnu::cold]] void raiseNoContainer(const COtxValue& value, const char* expected) {
    std::ostringstream text;
    text << value << " type: " << value.stringType() << ", not " << expected;
    throw velkotx::OTXRuntimeException("OtxValue from path", text.str());
}

// The element of a list or map that the step names; null if the value is neither.
COtxValue* slotOf(const COtxValue& value, const COtxValue& step, const Steps& steps, const Name& variable) {
    if (value.Type() == OTX::ValueType::List) {
        std::vector<COtxValue>& items = value.List();
        // A negative index is beyond every size.
        const auto index = static_cast<unsigned long long>(step.Int());
        if (index >= items.size()) raiseNoSlot(steps, step, "List", variable, "index");
        return &items[index];
    }
    if (value.Type() == OTX::ValueType::Map) {
        std::map<COtxValue, COtxValue>& entries = value.Map();
        const auto found = entries.find(step);
        if (found == entries.end()) raiseNoSlot(steps, step, "Map", variable, "key");
        return &found->second;
    }
    return nullptr;
}

// The item of a list, the most frequent case, read without making a value of the index. False for all else, and then
// without an effect: the whole way follows, with its failures.
bool readItem(const Path& path, OtxContext& context, const Name& variable, COtxValue& item) {
    long long index = 0;
    if (path.order().size() != 1 || path.order()[0].id != byIndex ||
        !readInteger(path.stepByIndex()[0], context, index))
        return false;
    const COtxValue list = context.Variables().Get(variable);
    if (list.Type() != OTX::ValueType::List) return false;
    const std::vector<COtxValue>& items = list.List();
    return lookInto(context, [&] {
        const auto place = static_cast<unsigned long long>(index);
        if (place >= items.size()) return false;
        item = items[place];
        return true;
    });
}

}  // namespace

// Never makes a key or extends a list. Without a step the value is lost; this is meant.
template <>
void Path_impl<Path_base>::write(OtxContext& context, const Name& variable, const COtxValue& value) const {
    Steps steps;
    evaluateSteps(*this, context, steps);
    COtxValue root = context.Variables().Get(variable);
    COtxValue* current = &root;
    // The replaced value dies after the lock is released.
    COtxValue replaced = value;
    const std::lock_guard content(context.ContentLock());
    for (const COtxValue& step : steps) {
        COtxValue* const slot = slotOf(*current, step, steps, variable);
        if (slot == nullptr) raiseNoContainer(*current, "list or map");
        current = slot;
    }
    std::swap(*current, replaced);
}

template <>
COtxValue Path_impl<Path_base>::read(OtxContext& context, const Name& variable) const {
    COtxValue current;
    if (readItem(*this, context, variable, current)) return current;
    Steps steps;
    evaluateSteps(*this, context, steps);
    current = context.Variables().Get(variable);
    for (const COtxValue& step : steps) {
        COtxValue next;
        const auto enter = [&] {
            const COtxValue* const slot = slotOf(current, step, steps, variable);
            if (slot != nullptr) next = *slot;
            return slot != nullptr;
        };
        if (lookAt(current, context, enter)) {
            current = std::move(next);
            continue;
        }
        if (current.IsContainer())
            next = current.Container().GetParameterByStep(step);
        else
            lookAt(current, context, [&] { raiseNoContainer(current, "list, map or parameter container"); });
        current = std::move(next);
    }
    return current;
}

template <>
COtxValue Path_impl<Path_base>::steps(OtxContext& context) const {
    Steps values;
    evaluateSteps(*this, context, values);
    return settled(asList(values), context);
}

}  // namespace otxns
