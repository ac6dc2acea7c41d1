// The List value.
#include <otx/value/COtxList.h>

#include <algorithm>
#include <ostream>

#include "ContainerBehaviour.h"
#include "CopyMap.h"
#include "Descent.h"
#include "JsonWriter.h"
#include "Make.h"
#include "TextValues.h"

namespace otx {

namespace {

using Native = COtxValueBehaviour::Native;

const std::vector<COtxValue>& itemsBehind(const COtxValueBehaviour& behaviour) {
    return static_cast<const ListBehaviour&>(behaviour).items;
}

COtxValue makeList(std::vector<COtxValue> items) { return makePlain<ListBehaviour>(std::move(items)); }

}  // namespace

std::weak_ordering compareValues(const COtxValue& left, const COtxValue& right) {
    const COtxValueBehaviour* const first = left.GetBehaviourReference().get();
    const COtxValueBehaviour* const second = right.GetBehaviourReference().get();
    if (const auto order = compareFamilies(first, second); order != 0) return order;
    // One walk instead of two at each level.
    if (first != nullptr && first->NativeKind() == Native::List)
        return static_cast<const ListBehaviour*>(first)->compareWith(*second);
    if (first != nullptr && first->NativeKind() == Native::Map)
        return static_cast<const MapBehaviour*>(first)->compareWith(*second);
    if (left < right) return std::weak_ordering::less;
    return left == right ? std::weak_ordering::equivalent : std::weak_ordering::greater;
}

COtxValue ListBehaviour::ToString() { return makeText(plainJsonText(*this)); }

void ListBehaviour::ToStream(std::ostream& out, int) const { streamJson(out, *this); }

COtxValue ListBehaviour::ToJSONObject(Value2IdMap&) { return makeList(items); }

COtxValue ListBehaviour::Copy(const COtxValue& self, OTX::CopyMap& copies) const {
    COtxValue copy = makeList({});
    copies.add(self, copy);
    std::vector<COtxValue>& copied = copy.List();
    copied.reserve(items.size());
    for (const COtxValue& item : items) copied.push_back(copies.copyOf(item));
    return copy;
}

bool ListBehaviour::equalTo(const COtxValueBehaviour& right) const {
    if (this == &right) return true;
    const Descent descent;
    return items == itemsBehind(right);
}

std::weak_ordering ListBehaviour::compareWith(const COtxValueBehaviour& right) const {
    if (this == &right) return std::weak_ordering::equivalent;
    const Descent descent;
    const std::vector<COtxValue>& others = itemsBehind(right);
    return std::lexicographical_compare_three_way(items.begin(), items.end(), others.begin(), others.end(),
                                                  compareValues);
}

}  // namespace otx

COtxList::COtxList() : COtxValue(otx::makeList({})) {}
COtxList::COtxList(const std::vector<COtxValue>& items) : COtxValue(otx::makeList(items)) {}
COtxList::COtxList(std::vector<COtxValue>&& items) : COtxValue(otx::makeList(std::move(items))) {}
