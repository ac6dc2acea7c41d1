// Where the parameters of a message lie in the bytes that came.
#include "diag/ResponseParameters.h"

#include "diag/DiagFailure.h"
#include "diag/UdsText.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace velkotx::host {

using OTX::Exceptions_e;

ResponseParameters::ResponseParameters(const MessageDescription& description, Bytes bytes)
    : ResponseParameters(description, std::move(bytes), std::string()) {}

ResponseParameters::ResponseParameters(const MessageDescription& description, Bytes bytes, std::string flaw)
    : MessageParameters(description.name), bytes_(std::move(bytes)), flaw_(std::move(flaw)), located_(1) {
    placeFields(ParameterTree::root, description.parameters, 0, description.prefix.size());
}

// Gives the place behind the last of them.
std::size_t ResponseParameters::placeFields(ParameterPlace parent, const std::vector<ParameterDescription>& fields,
                                            std::size_t base, std::size_t cursor) {
    for (const ParameterDescription& field : fields) {
        const std::size_t at = field.bytePosition ? base + *field.bytePosition : cursor;
        const ParameterPlace place = tree_.add(parent, field);
        located_.push_back({at, 0, 0});
        switch (field.kind) {
            case ParameterKind::Value:
                located_[place].size = sizeOf(place, at);
                cursor = at + located_[place].size;
                break;
            case ParameterKind::Structure: cursor = placeFields(place, field.fields, at, at); break;
            case ParameterKind::Repeated: cursor = placeItems(place, at); break;
        }
    }
    return cursor;
}

// Items beyond the end of the bytes are announced, but not there.
std::size_t ResponseParameters::placeItems(ParameterPlace place, std::size_t at) {
    const ParameterDescription& description = *tree_[place].description;
    const bool toTheEnd = description.extent == Extent::Rest;
    const std::uint64_t count = toTheEnd ? bytes_.size() : countOf(place);
    std::int64_t item = 0;
    while (static_cast<std::uint64_t>(item) < count && at < bytes_.size()) {
        const ParameterPlace child = tree_.add(place, description, item++);
        located_.push_back({at, 0, 0});
        const std::size_t end = placeFields(child, description.fields, at, at);
        if (end <= at)
            break;
        at = end;
    }
    located_[place].announced = toTheEnd ? static_cast<std::uint64_t>(item) : count;
    return at;
}

std::size_t ResponseParameters::sizeOf(ParameterPlace place, std::size_t at) const {
    const ParameterDescription& description = *tree_[place].description;
    switch (description.extent) {
        case Extent::Rest: return at < bytes_.size() ? bytes_.size() - at : 0;
        // More than there is stays more than there is.
        case Extent::Counted:
            return static_cast<std::size_t>(std::min<std::uint64_t>(countOf(place), bytes_.size() + 1));
        default: return fixedSize(description);
    }
}

std::uint64_t ResponseParameters::countOf(ParameterPlace place) const {
    const ParameterDescription& description = *tree_[place].description;
    if (description.extent == Extent::Fixed)
        return description.count;
    const auto counter = tree_.counterOf(place);
    const auto value = counter ? find(*counter) : std::nullopt;
    const auto* const bits = value ? std::get_if<std::uint64_t>(&*value) : nullptr;
    if (bits == nullptr)
        return 0;
    const double count = physicalNumber(*bits, *tree_[*counter].description);
    return count >= 0 && count < 4294967296.0 ? static_cast<std::uint64_t>(std::llround(count)) : 0;
}

std::optional<CodedValue> ResponseParameters::find(ParameterPlace place) const {
    // A counter may stand behind what it counts by mistake.
    if (place >= located_.size() || !flaw_.empty())
        return std::nullopt;
    const Located& where = located_[place];
    if (where.at > bytes_.size() || where.size > bytes_.size() - where.at)
        return std::nullopt;
    return readCoded(bytes_, where.at, where.size, *tree_[place].description);
}

bool ResponseParameters::constantsFit() const {
    for (ParameterPlace place = 1; place < tree_.size(); ++place) {
        const ParameterDescription& description = *tree_[place].description;
        if (tree_.isComplex(place) || std::holds_alternative<std::monostate>(description.constant))
            continue;
        const auto value = find(place);
        if (value && *value != encoded(toValue(description.constant), description))
            return false;
    }
    return true;
}

CodedValue ResponseParameters::coded(ParameterPlace place) const {
    if (!flaw_.empty())
        fail(Exceptions_e::DiagComException, tree_.describe(place) + " has no value: " + flaw_);
    if (auto value = find(place))
        return std::move(*value);
    const Located& where = located_[place];
    fail(Exceptions_e::DiagComException,
         tree_.describe(place) + " needs " + std::to_string(where.size) + " bytes from byte " +
             std::to_string(where.at) + " on, but the response ends after " + std::to_string(bytes_.size()) + ": " +
             hexText(bytes_));
}

void ResponseParameters::assign(ParameterPlace place, CodedValue&&) {
    fail(Exceptions_e::DiagComException, tree_.describe(place) + " belongs to a response and can't be set");
}

void ResponseParameters::missing(ParameterPlace repetition, std::int64_t index) {
    if (static_cast<std::uint64_t>(index) < located_[repetition].announced)
        fail(Exceptions_e::DiagComException, tree_.describe(repetition) + " should have " +
                                                 std::to_string(located_[repetition].announced) +
                                                 " items, but the response ends before number " +
                                                 std::to_string(index) + ": " + hexText(bytes_));
}

}  // namespace velkotx::host
