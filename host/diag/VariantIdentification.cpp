// Which variant of a control unit answers.
#include "diag/VariantIdentification.h"

#include "diag/BlockingRequest.h"
#include "diag/DiagResult.h"
#include "diag/UdsText.h"

#include <algorithm>
#include <map>
#include <utility>

namespace velkotx::host {

namespace {

constexpr std::uint8_t readDataByIdentifier = 0x22;
constexpr std::uint8_t readDataByIdentifierPositive = 0x62;

class Identifiers {
public:
    explicit Identifiers(UdsChannel& channel) : channel_(channel) {}

    // Empty when the control unit refuses.
    const Bytes& data(std::uint16_t identifier) {
        const auto known = data_.find(identifier);
        return known != data_.end() ? known->second : data_.emplace(identifier, read(identifier)).first->second;
    }

private:
    Bytes read(std::uint16_t identifier) {
        const Bytes name{static_cast<std::uint8_t>(identifier >> 8), static_cast<std::uint8_t>(identifier & 0xFF)};
        const UdsOutcome outcome = executeAndWait(channel_, {{readDataByIdentifier, name[0], name[1]}, false});
        if (const auto failure = failureOf(outcome, channel_.name()))
            fail(*failure);
        const Bytes& response = outcome.responses.front().bytes;
        if (response.size() < 3 || response[0] != readDataByIdentifierPositive || response[1] != name[0] ||
            response[2] != name[1])
            return {};
        return {response.begin() + 3, response.end()};
    }

    UdsChannel& channel_;
    std::map<std::uint16_t, Bytes> data_;
};

bool fits(const VariantMatch& match, const Bytes& data) {
    if (match.position > data.size() || match.bytes.size() > data.size() - match.position)
        return false;
    return std::equal(match.bytes.begin(), match.bytes.end(),
                      data.begin() + static_cast<std::ptrdiff_t>(match.position));
}

// "F187 is 06 02, not 05 at byte 1".
std::string misfit(const VariantMatch& match, const Bytes& data) {
    std::string number = hexText(Bytes{static_cast<std::uint8_t>(match.dataIdentifier >> 8),
                                       static_cast<std::uint8_t>(match.dataIdentifier & 0xFF)});
    std::erase(number, ' ');
    if (data.empty())
        return number + " is refused";
    return number + " is " + hexText(data) + ", not " + hexText(match.bytes) + " at byte " + std::to_string(match.position);
}

}  // namespace

IdentifiedVariant identifyVariant(UdsChannel& channel, const ControlUnitDescription& unit) {
    Identifiers identifiers(channel);
    std::string why;
    for (const VariantDescription& variant : unit.variants) {
        const auto misfitting =
            std::find_if(variant.matches.begin(), variant.matches.end(), [&](const VariantMatch& match) {
                return !fits(match, identifiers.data(match.dataIdentifier));
            });
        if (misfitting == variant.matches.end())
            return {&variant, {}};
        why += (why.empty() ? "'" : "; '") + variant.name + "': " +
               misfit(*misfitting, identifiers.data(misfitting->dataIdentifier));
    }
    return {nullptr, why};
}

}  // namespace velkotx::host
