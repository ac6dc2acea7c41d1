// The registry that ties exception kinds to schema classes.
#include <otx/value/COtxExceptions.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>

#include "Refusal.h"

namespace {

constexpr std::size_t kinds = 42;

// Constant-initialised, since the document layer registers during static initialisation.
constinit std::array<std::atomic<const std::type_info*>, kinds> types{};

// By number. Never destroyed: exceptions hand references out.
const std::array<std::string, kinds>& names() {
    static const auto* const all = new std::array<std::string, kinds>{
        "Exception",
        "InvalidReferenceException",
        "OutOfBoundsException",
        "ArithmeticException",
        "AmbiguousCallException",
        "TypeMismatchException",
        "UserException",
        "DiagComException",
        "UnknownTargetException",
        "AmbiguousSemanticException",
        "UnknownResponseException",
        "IncompleteParameterizationException",
        "InvalidStateException",
        "GetDiagServiceFromException",
        "UnknownComChannelException",
        "LossOfComException",
        "QuantityException",
        "UnknownUnitException",
        "InvalidConversionException",
        "StringUtilException",
        "UnsupportedEncodingException",
        "ProviderException",
        "ProviderServiceException",
        "ProviderDisposedException",
        "ConfigurationException",
        "ExecuteException",
        "FlashException",
        "UnsupportedFormatException",
        "PersistenceException",
        "PersistenceSaveException",
        "ActivateEthernetException",
        "ComInterfaceException",
        "IgnitionStateException",
        "NoDefaultComInterfaceException",
        "VCINotConnectedException",
        "FileAccessException",
        "FileException",
        "FileFormatException",
        "FileLockException",
        "FileNotFoundException",
        "FileOpenException",
        "FileSaveException",
    };
    return *all;
}

}  // namespace

void COtxExceptions::Add(OTX::Exceptions_e kind, const std::type_info& type) {
    const auto number = static_cast<std::size_t>(kind);
    if (number >= kinds)
        otx::fail(OTX::Exceptions_e::OutOfBoundsException,
                  "There is no exception kind " + std::to_string(static_cast<int>(kind)));
    types[number].store(&type, std::memory_order_release);
}

const std::type_info& COtxExceptions::Type(OTX::Exceptions_e kind) {
    const auto number = static_cast<std::size_t>(kind);
    const std::type_info* const type = number < kinds ? types[number].load(std::memory_order_acquire) : nullptr;
    return type != nullptr ? *type : typeid(void);
}

const std::string& COtxExceptions::Name(OTX::Exceptions_e kind) {
    const auto number = static_cast<std::size_t>(kind);
    return names()[number < kinds ? number : 0];
}

bool COtxExceptions::Find(const std::string& name, OTX::Exceptions_e& kind) {
    const auto found = std::find(names().begin(), names().end(), name);
    if (found == names().end()) return false;
    kind = static_cast<OTX::Exceptions_e>(found - names().begin());
    return true;
}
