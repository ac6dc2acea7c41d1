// The parameters of a request: the values.
#include "diag/RequestParameters.h"

#include "diag/DiagFailure.h"
#include "diag/ResponseParameters.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

bool has(const PlainValue& value) { return !std::holds_alternative<std::monostate>(value); }

const PlainValue& presetOf(const ParameterDescription& parameter) {
    return has(parameter.constant) ? parameter.constant : parameter.defaultValue;
}

}  // namespace

RequestParameters::RequestParameters(const MessageDescription& description)
    : MessageParameters(description.name), description_(description), slots_(1) {
    addFields(ParameterTree::root, description.parameters);
}

void RequestParameters::addFields(ParameterPlace parent, const std::vector<ParameterDescription>& fields) {
    for (const ParameterDescription& field : fields) {
        const ParameterPlace place = tree_.add(parent, field);
        slots_.emplace_back();
        if (field.kind == ParameterKind::Structure)
            addFields(place, field.fields);
        else if (field.kind == ParameterKind::Value && has(presetOf(field)))
            slots_[place].fallback = encoded(toValue(presetOf(field)), field);
        else if (field.kind == ParameterKind::Repeated && field.extent == Extent::Fixed)
            for (std::size_t item = 0; item < field.count; ++item)
                addItem(place);
    }
}

void RequestParameters::addItem(ParameterPlace repetition) {
    const ParameterDescription& description = *tree_[repetition].description;
    const auto number = static_cast<std::int64_t>(tree_[repetition].children.size());
    const ParameterPlace item = tree_.add(repetition, description, number);
    slots_.emplace_back();
    addFields(item, description.fields);
}

void RequestParameters::missing(ParameterPlace repetition, std::int64_t index) {
    const bool next = static_cast<std::size_t>(index) == tree_[repetition].children.size();
    if (!next || tree_[repetition].description->extent == Extent::Fixed)
        return;
    if (index >= mostItems)
        fail(Exceptions_e::DiagComException,
             tree_.describe(repetition) + " has " + std::to_string(mostItems) + " items already, and can't have more");
    addItem(repetition);
}

CodedValue RequestParameters::coded(ParameterPlace place) const {
    const Slot& slot = slots_[place];
    if (slot.value)
        return *slot.value;
    if (slot.fallback)
        return *slot.fallback;
    fail(Exceptions_e::IncompleteParameterizationException, tree_.describe(place) + " has not been set");
}

void RequestParameters::assign(ParameterPlace place, CodedValue&& value) {
    if (has(tree_[place].description->constant))
        fail(Exceptions_e::DiagComException, tree_.describe(place) + " is constant");
    slots_[place].value = std::move(value);
    raw_.reset();
}

COtxValue RequestParameters::defaultValue(ParameterPlace place) const {
    const ParameterDescription* parameter = nullptr;
    std::optional<CodedValue> value;
    std::string text;
    {
        const std::lock_guard guard(parametersLock_);
        parameter = tree_[place].description;
        value = slots_[place].fallback;
        text = tree_.describe(place);
    }
    if (!value)
        fail(Exceptions_e::DiagComException, text + " has no default");
    return decoded(*value, *parameter, OTX::ValueType::Empty);
}

void RequestParameters::setPdu(const Bytes& pdu) {
    const ResponseParameters laidOut(description_, pdu);
    const std::lock_guard guard(parametersLock_);
    for (Slot& slot : slots_)
        slot.value.reset();
    take(laidOut, ParameterTree::root, ParameterTree::root);
    raw_ = pdu;
}

void RequestParameters::take(const ResponseParameters& from, ParameterPlace theirs, ParameterPlace mine) {
    const auto& children = from.tree()[theirs].children;
    while (tree_.isRepetition(mine) && tree_[mine].children.size() < children.size() &&
           tree_[mine].children.size() < static_cast<std::size_t>(mostItems))
        addItem(mine);
    const std::size_t count = std::min(children.size(), tree_[mine].children.size());
    for (std::size_t i = 0; i < count; ++i) {
        const ParameterPlace place = tree_[mine].children[i];
        if (tree_.isComplex(place))
            take(from, children[i], place);
        else if (!has(tree_[place].description->constant))
            slots_[place].value = from.find(children[i]);
    }
}

void RequestParameters::copyFrom(const RequestParameters& other, ParameterPlace place) {
    if (&other == this)
        return;
    const std::scoped_lock guard(parametersLock_, other.parametersLock_);
    std::vector<ParameterPlace> open{place};
    while (!open.empty()) {
        const ParameterPlace next = open.back();
        open.pop_back();
        // The same description, so the same places, but for items that one of them has more.
        if (next >= slots_.size() || next >= other.slots_.size())
            continue;
        slots_[next] = other.slots_[next];
        open.insert(open.end(), tree_[next].children.begin(), tree_[next].children.end());
    }
    raw_.reset();
}

}  // namespace velkotx::host
