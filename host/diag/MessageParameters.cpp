// The parameters of a request or response: what every handle on one of them asks.
#include "diag/MessageParameters.h"

#include "diag/DiagFailure.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <map>
#include <utility>

namespace velkotx::host {

using OTX::Exceptions_e;
using OTX::ValueType;

ParameterPlace MessageParameters::child(ParameterPlace parent, const COtxValue& step) {
    const std::lock_guard guard(parametersLock_);
    if (tree_.isRepetition(parent) && step.Type() == ValueType::Integer) {
        const long long index = step.Int();
        if (index >= 0 && static_cast<std::size_t>(index) >= tree_[parent].children.size())
            missing(parent, index);
    }
    return tree_.child(parent, step);
}

ParameterPlace MessageParameters::bySemantic(ParameterPlace from, const COtxValue& semantic) const {
    const std::lock_guard guard(parametersLock_);
    return tree_.bySemantic(from, semantic);
}

std::vector<ParameterPlace> MessageParameters::children(ParameterPlace parent) const {
    const std::lock_guard guard(parametersLock_);
    return tree_[parent].children;
}

const ParameterDescription* MessageParameters::description(ParameterPlace place) const {
    const std::lock_guard guard(parametersLock_);
    return tree_[place].description;
}

std::string MessageParameters::nameOf(ParameterPlace place) const {
    const std::lock_guard guard(parametersLock_);
    return tree_.nameOf(place);
}

bool MessageParameters::isComplex(ParameterPlace place) const {
    const std::lock_guard guard(parametersLock_);
    return tree_.isComplex(place);
}

COtxValue MessageParameters::value(ParameterPlace place, ValueType type) const {
    CodedValue value;
    const ParameterDescription* description = nullptr;
    {
        const std::lock_guard guard(parametersLock_);
        if (!tree_.isComplex(place)) {
            description = tree_[place].description;
            value = coded(place);
        }
    }
    return description != nullptr ? decoded(value, *description, type) : complexValue(place, type);
}

COtxValue MessageParameters::complexValue(ParameterPlace place, ValueType type) const {
    bool repetition = false;
    std::string text;
    {
        const std::lock_guard guard(parametersLock_);
        repetition = tree_.isRepetition(place);
        text = tree_.describe(place);
    }
    if (type == ValueType::Empty)
        type = repetition ? ValueType::List : ValueType::Map;
    if (type == ValueType::List) {
        std::vector<COtxValue> items;
        for (const ParameterPlace child : children(place))
            items.push_back(value(child, ValueType::Empty));
        return COtxList(std::move(items));
    }
    if (type != ValueType::Map || repetition)
        fail(Exceptions_e::TypeMismatchException, text + " is complex and not to be had as " + OTX::typeName(type));
    std::map<COtxValue, COtxValue> fields;
    for (const ParameterPlace child : children(place))
        fields.emplace(COtxString(nameOf(child)), value(child, ValueType::Empty));
    return COtxMap(std::move(fields));
}

void MessageParameters::set(ParameterPlace place, const COtxValue& value) {
    if (isComplex(place))
        return setComplex(place, value);
    CodedValue coded = encoded(value, *description(place));
    const std::lock_guard guard(parametersLock_);
    assign(place, std::move(coded));
}

void MessageParameters::setComplex(ParameterPlace place, const COtxValue& value) {
    if (value.Type() == ValueType::List) {
        long long index = 0;
        for (const COtxValue& item : value.List())
            set(child(place, COtxInt(index++)), item);
        return;
    }
    if (value.Type() != ValueType::Map) {
        const std::lock_guard guard(parametersLock_);
        fail(Exceptions_e::TypeMismatchException, tree_.describe(place) + " is complex: expected a " +
                                                      (tree_.isRepetition(place) ? "List" : "Map") + ", not a value of type " +
                                                      OTX::typeName(value.Type()));
    }
    for (const auto& [name, field] : value.Map())
        set(child(place, name), field);
}

}  // namespace velkotx::host
