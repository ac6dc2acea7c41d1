// The actions that change a list through the live handle that its variable answers.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxException.h>

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace otxns {

namespace {

[[noreturn]] void raiseOutOfBounds(int index, std::size_t size) {
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                        "Index " + std::to_string(index) + " out side list bounds. Size = " + std::to_string(size));
}

bool isWithin(long long place, const std::vector<COtxValue>& items) {
    return place >= 0 && place <= static_cast<long long>(items.size());
}

}  // namespace

// A term that gives a list adds that list as one element.
template <>
void ListAppendItems_impl<ListAppendItems_base>::exec(OtxContext& context) const {
    const COtxValue target = list().read(context);
    for (const Term& term : item()) {
        COtxValue value = evaluate(term, context);
        std::vector<COtxValue>& items = target.List();
        const std::lock_guard content(context.ContentLock());
        items.push_back(std::move(value));
    }
}

template <>
void ListConcatenate_impl<ListConcatenate_base>::exec(OtxContext& context) const {
    const COtxValue target = list().read(context);
    for (const ListTerm& term : otherList()) {
        // A copy, since the other list may be the target itself.
        const COtxValue other = evaluate(term, context);
        const std::vector<COtxValue> added = lookInto(context, [&] { return std::vector<COtxValue>(other.List()); });
        std::vector<COtxValue>& items = target.List();
        const std::lock_guard content(context.ContentLock());
        items.insert(items.end(), added.begin(), added.end());
    }
}

// The index is checked before any item is evaluated.
template <>
void ListInsertItems_impl<ListInsertItems_base>::exec(OtxContext& context) const {
    const COtxValue target = list().read(context);
    std::vector<COtxValue>& items = target.List();
    const int place = evaluateInt32(index(), context);
    const auto check = [&] {
        if (!isWithin(place, items)) raiseOutOfBounds(place, items.size());
    };
    lookInto(context, check);
    std::vector<COtxValue> added;
    for (const Term& term : item()) added.push_back(evaluate(term, context));
    const std::lock_guard content(context.ContentLock());
    // Another lane may have taken items away.
    check();
    items.insert(items.begin() + place, added.begin(), added.end());
}

template <>
void ListRemoveItems_impl<ListRemoveItems_base>::exec(OtxContext& context) const {
    const COtxValue target = list().read(context);
    std::vector<COtxValue>& items = target.List();
    const int first = evaluateInt32(index(), context);
    const int number = evaluateInt32(count(), context);
    // The removed values die after the lock is released.
    std::vector<COtxValue> removed;
    const std::lock_guard content(context.ContentLock());
    // A bad count is reported with the index; this is meant.
    if (first < 0 || number < 0 || !isWithin(static_cast<long long>(first) + number, items))
        raiseOutOfBounds(first, items.size());
    const auto begin = items.begin() + first;
    removed.assign(begin, begin + number);
    items.erase(begin, begin + number);
}

template <>
void ListClear_impl<ListClear_base>::exec(OtxContext& context) const {
    const COtxValue target = list().read(context);
    std::vector<COtxValue>& items = target.List();
    std::vector<COtxValue> removed;
    const std::lock_guard content(context.ContentLock());
    items.swap(removed);
}

}  // namespace otxns
