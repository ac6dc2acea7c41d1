// Checks that the parameters of a request don't write the same bits.
#include "vehicle/ReadParts.h"

#include "diag/CodedValue.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace velkotx::host {

namespace {

// Which bits are written so far.
class Bits {
public:
    explicit Bits(std::size_t prefix) : written_(prefix, 0xFF) {}

    // Adds those of a value; false when some of them are there already.
    bool add(std::size_t at, const ParameterDescription& value) {
        const CodedValue ones =
            isBytes(value.coding) ? CodedValue(Bytes(fixedSize(value), 0xFF)) : CodedValue(~std::uint64_t{0});
        Bytes own;
        writeCoded(own, 0, ones, value);
        if (written_.size() < at + own.size())
            written_.resize(at + own.size());
        bool fresh = true;
        for (std::size_t place = 0; place < own.size(); ++place) {
            fresh = fresh && (written_[at + place] & own[place]) == 0;
            written_[at + place] |= own[place];
        }
        return fresh;
    }

private:
    Bytes written_;
};

// Bytes of a message; what lies behind isn't looked at.
constexpr std::size_t longestChecked = 1U << 24U;

// Where the next parameter begins; nothing when that depends on values.
using Cursor = std::optional<std::size_t>;

// Whether a field writes what others write. Moves the cursor behind it. Repetitions are passed over.
bool overlaps(const ParameterDescription& field, Cursor base, Cursor& cursor, Bits& bits) {
    Cursor at = cursor;
    if (field.bytePosition)
        at = base ? Cursor(*base + *field.bytePosition) : std::nullopt;
    if (!at || *at > longestChecked || field.kind == ParameterKind::Repeated || field.extent != Extent::Fixed) {
        cursor = std::nullopt;
        return false;
    }
    cursor = at;
    if (field.kind == ParameterKind::Value) {
        *cursor += fixedSize(field);
        return !bits.add(*at, field);
    }
    return std::any_of(field.fields.begin(), field.fields.end(),
                       [&](const ParameterDescription& inner) { return overlaps(inner, at, cursor, bits); });
}

}  // namespace

void checkOverlap(const JsonPlace& request, const MessageDescription& message) {
    ObjectReader in(request);
    const auto list = in.find("parameters");
    if (!list)
        return;
    const auto places = list->items();
    Bits bits(message.prefix.size());
    Cursor cursor = message.prefix.size();
    for (std::size_t index = 0; index < message.parameters.size(); ++index)
        if (overlaps(message.parameters[index], 0, cursor, bits))
            return places[index].mistake("writes bits that another parameter before it writes");
}

}  // namespace velkotx::host
