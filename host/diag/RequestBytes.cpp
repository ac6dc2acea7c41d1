// The parameters of a request: the bytes that they become.
#include "diag/RequestParameters.h"

#include "diag/DiagFailure.h"

#include <algorithm>
#include <variant>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

constexpr std::size_t longestPdu = std::size_t{1} << 24;

}  // namespace

Bytes RequestParameters::pdu() const {
    const std::lock_guard guard(parametersLock_);
    Bytes pdu;
    if (raw_) {
        pdu = *raw_;
    } else {
        pdu.reserve(description_.prefix.size() + 8 * slots_.size());
        pdu = description_.prefix;
        writeFields(pdu, ParameterTree::root, 0, pdu.size());
    }
    if (pdu.empty())
        fail(Exceptions_e::DiagComException, tree_.describe(ParameterTree::root) + " has no bytes");
    return pdu;
}

// Gives the place behind the last of them.
std::size_t RequestParameters::writeFields(Bytes& pdu, ParameterPlace parent, std::size_t base,
                                           std::size_t cursor) const {
    for (const ParameterPlace place : tree_[parent].children) {
        const ParameterDescription& field = *tree_[place].description;
        const std::size_t at = field.bytePosition ? base + *field.bytePosition : cursor;
        if (at > longestPdu)
            fail(Exceptions_e::DiagComException, tree_.describe(place) + " lies beyond every PDU");
        switch (field.kind) {
            case ParameterKind::Value: cursor = writeCoded(pdu, at, toSend(place), field); break;
            case ParameterKind::Structure: cursor = writeFields(pdu, place, at, at); break;
            case ParameterKind::Repeated: cursor = writeItems(pdu, place, at); break;
        }
    }
    return cursor;
}

std::size_t RequestParameters::writeItems(Bytes& pdu, ParameterPlace repetition, std::size_t at) const {
    for (const ParameterPlace item : tree_[repetition].children)
        at = writeFields(pdu, item, at, at);
    return at;
}

// A counter that nobody set counts by itself, whatever its default is.
CodedValue RequestParameters::toSend(ParameterPlace place) const {
    if (slots_[place].value)
        return *slots_[place].value;
    if (const auto count = counted(place, tree_[place].parent))
        return encodedCount(*count, *tree_[place].description);
    return coded(place);
}

// What the counter counts, among the fields of a structure and those further in.
std::optional<std::size_t> RequestParameters::counted(ParameterPlace counter, ParameterPlace among) const {
    const std::string& name = tree_[counter].description->name;
    for (const ParameterPlace place : tree_[among].children) {
        const ParameterDescription& field = *tree_[place].description;
        if (place != counter && field.extent == Extent::Counted && field.countedBy == name)
            return lengthOf(place);
        if (field.kind == ParameterKind::Structure) {
            if (const auto found = counted(counter, place))
                return found;
        }
    }
    return std::nullopt;
}

std::size_t RequestParameters::lengthOf(ParameterPlace place) const {
    if (tree_.isRepetition(place))
        return tree_[place].children.size();
    const CodedValue value = coded(place);
    const auto* const bytes = std::get_if<Bytes>(&value);
    return bytes != nullptr ? bytes->size() : fixedSize(*tree_[place].description);
}

}  // namespace velkotx::host
