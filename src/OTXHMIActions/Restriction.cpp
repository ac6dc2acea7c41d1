// The restriction of an input dialog.
#include <OTXHMIActions/Restriction.h>
#include <otx/Stack.h>
#include <otx/value/COtxException.h>

#include <regex>

namespace HMI {

namespace {

[[noreturn]] void refuse(const std::string& pattern, const char* cause) {
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "Error creating regex for " + pattern + ": " + cause);
}

// The compiler of patterns recurses with each character.
constexpr std::size_t stackPerCharacter = 2048;

}  // namespace

void requireValidRestriction(const std::string& pattern) {
    if (pattern.size() > otx::stackLeft() / stackPerCharacter) refuse(pattern, "the pattern is too long");
    try {
        const std::regex compiled(pattern);
    } catch (const std::regex_error& error) {
        refuse(pattern, error.what());
    }
}

}  // namespace HMI
