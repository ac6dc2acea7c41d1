// The terms that make and read lists.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/Typed.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>

#include <algorithm>
#include <vector>

namespace otxns {

namespace {

// The item type plays no part.
template <class ListMaker>
COtxValue makeList(const ListMaker& term, OtxContext& context) {
    std::vector<COtxValue> values;
    if (term.items().present()) {
        values.reserve(term.items()->item().size());
        for (const Term& item : term.items()->item()) values.push_back(evaluate(item, context));
    }
    return COtxList(std::move(values));
}

}  // namespace

template <>
COtxValue ListCreate_impl<ListCreate_base>::eval(OtxContext& context) const {
    return makeList(*this, context);
}

template <>
COtxValue ListLiteral_impl<ListLiteral_base>::eval(OtxContext& context) const {
    return makeList(*this, context);
}

template <>
COtxValue ListGetLength_impl<ListGetLength_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateList(list(), context, "ListGetLength");
    return COtxInt(static_cast<long long>(lookInto(context, [&] { return value.List().size(); })));
}

// The elements are shared with the original.
template <>
COtxValue ListCopy_impl<ListCopy_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateList(otherList(), context, "ListCopy");
    return lookInto(context, [&] { return COtxList(std::as_const(value.List())); });
}

// A value that is no list gets the value's own refusal, after the second term is evaluated.
template <>
COtxValue ListContainsValue_impl<ListContainsValue_base>::eval(OtxContext& context) const {
    return evaluateTwo(list(), value(), context, [&](const COtxValue& values, const COtxValue& wanted) {
        const std::vector<COtxValue>& items = values.List();
        const auto isWanted = [&](const COtxValue& item) { return item == wanted; };
        return COtxBool(lookInto(context, [&] { return std::any_of(items.begin(), items.end(), isWanted); }));
    });
}

}  // namespace otxns
