// Where the parameters of a message lie in the bytes that came.
#pragma once

#include "diag/MessageParameters.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velkotx::host {

// Never changes, but for what the base has. Bytes that are missing make a failure where a parameter is read that needs
// them.
class ResponseParameters final : public MessageParameters {
public:
    // The description must outlive the object.
    ResponseParameters(const MessageDescription& description, Bytes bytes);
    // Of a response that doesn't fit: every parameter is there by its name, and none has a value.
    ResponseParameters(const MessageDescription& description, Bytes bytes, std::string flaw);

    const Bytes& bytes() const noexcept { return bytes_; }
    const ParameterTree& tree() const noexcept { return tree_; }
    // Nothing where the bytes break off before its end.
    std::optional<CodedValue> find(ParameterPlace place) const;
    // Whether all that the description calls constant is so, as far as the bytes go.
    bool constantsFit() const;

private:
    struct Located {
        std::size_t at = 0;
        std::size_t size = 0;        // of a value, in bytes
        std::uint64_t announced = 0;  // of a repetition: how many items there should be
    };

    std::size_t placeFields(ParameterPlace parent, const std::vector<ParameterDescription>& fields, std::size_t base,
                            std::size_t cursor);
    std::size_t placeItems(ParameterPlace place, std::size_t at);
    std::size_t sizeOf(ParameterPlace place, std::size_t at) const;
    std::uint64_t countOf(ParameterPlace place) const;

    CodedValue coded(ParameterPlace place) const override;
    void assign(ParameterPlace place, CodedValue&& value) override;
    void missing(ParameterPlace repetition, std::int64_t index) override;

    const Bytes bytes_;
    const std::string flaw_;
    std::vector<Located> located_;  // by place
};

}  // namespace velkotx::host
