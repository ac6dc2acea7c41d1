// Any bytes as JSON: a value that its own text gives back, or the exception that is stated.
#include "Abort.h"

#include <otx/value/COtxValue.h>
#include <otx/value/Functions.h>
#include <otx/value/IException.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

// Nothing for a text that is refused.
std::optional<COtxValue> read(const std::string& text) {
    try {
        return OTX::FromJSON(text);
    } catch (const COtxValue& exception) {
        if (exception.Type() != OTX::ValueType::Exception) fuzz::fail("refused with something that is no exception");
        return std::nullopt;
    }
}

// What is written must read as a value that is written alike.
void requireRoundTrip(const COtxValue& value, bool isTyped) {
    const COtxValue copy = OTX::DeepCopy(value);
    copy.SetOTXJSON(isTyped);
    const std::string written = copy.ToJSON().String();
    const std::optional<COtxValue> again = read(written);
    if (!again) fuzz::fail("can't be read again: " + written);
    again->SetOTXJSON(isTyped);
    const std::string rewritten = again->ToJSON().String();
    if (rewritten != written) fuzz::fail(written + " is written as " + rewritten + " the next time");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::optional<COtxValue> value = read(std::string(reinterpret_cast<const char*>(data), size));
    if (!value) return 0;
    requireRoundTrip(*value, false);
    requireRoundTrip(*value, true);
    return 0;
}
