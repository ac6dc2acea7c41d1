// A pattern and, behind a line end, a text: an answer or the exception that is stated, soon.
#include "Abort.h"

#include <otx/value/COtxString.h>
#include <otx/value/IException.h>
#include <otx/value/IString.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

// Long enough for every construct.
constexpr std::size_t longestPattern = 256;
constexpr std::size_t longestText = 4096;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\n');
    if (end == std::string::npos || end > longestPattern || size - end > longestText) return 0;
    const COtxString pattern(input.substr(0, end));
    const COtxString text(input.substr(end + 1));
    try {
        const COtxValue answer = text.String().Match(pattern);
        if (answer.Type() != OTX::ValueType::Boolean) fuzz::fail("the answer is no Boolean");
    } catch (const COtxValue& exception) {
        if (exception.Type() != OTX::ValueType::Exception) fuzz::fail("refused with something that is no exception");
    }
    return 0;
}
