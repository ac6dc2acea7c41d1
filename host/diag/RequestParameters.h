// The parameters of a request: values that are set, and the bytes that they become.
#pragma once

#include "diag/MessageParameters.h"

#include <optional>
#include <vector>

namespace velkotx::host {

class ResponseParameters;

// A repetition of open length grows by one when its next item is asked for.
class RequestParameters final : public MessageParameters {
public:
    // A repetition holds no more items than this.
    static constexpr std::int64_t mostItems = 65536;

    // The description must outlive the object.
    explicit RequestParameters(const MessageDescription& description);

    // Throws kind 11 when a parameter without a default hasn't been set, and kind 7 for a request without a byte.
    Bytes pdu() const;
    // Takes the values from the bytes as far as they go; pdu() gives these very bytes until the next parameter is set.
    void setPdu(const Bytes& pdu);

    // The default, or the constant, as its own type. Throws kind 7 when there is none.
    COtxValue defaultValue(ParameterPlace place) const;
    // Takes all values below a place from another object of the same description.
    void copyFrom(const RequestParameters& other, ParameterPlace place);

private:
    struct Slot {
        std::optional<CodedValue> value;
        std::optional<CodedValue> fallback;
    };

    void addFields(ParameterPlace parent, const std::vector<ParameterDescription>& fields);
    void addItem(ParameterPlace repetition);
    void take(const ResponseParameters& from, ParameterPlace theirs, ParameterPlace mine);

    std::size_t writeFields(Bytes& pdu, ParameterPlace parent, std::size_t base, std::size_t cursor) const;
    std::size_t writeItems(Bytes& pdu, ParameterPlace repetition, std::size_t at) const;
    CodedValue toSend(ParameterPlace place) const;
    std::optional<std::size_t> counted(ParameterPlace counter, ParameterPlace among) const;
    std::size_t lengthOf(ParameterPlace place) const;

    CodedValue coded(ParameterPlace place) const override;
    void assign(ParameterPlace place, CodedValue&& value) override;
    void missing(ParameterPlace repetition, std::int64_t index) override;

    const MessageDescription& description_;
    std::vector<Slot> slots_;  // by place
    std::optional<Bytes> raw_;
};

}  // namespace velkotx::host
