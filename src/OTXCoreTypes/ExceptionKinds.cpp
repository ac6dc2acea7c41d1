// Ties each kind of OTX exception to the schema class that a Handler names for it.
#include <otx/value/COtxExceptions.h>
#include <schema/ComInterface.h>
#include <schema/DiagCom.h>
#include <schema/ExternalServiceProvider.h>
#include <schema/File.h>
#include <schema/Flash.h>
#include <schema/Persistence.h>
#include <schema/Quantities.h>
#include <schema/StringUtil.h>
#include <schema/core.h>

#include <typeinfo>
#include <utility>

namespace otxns {

namespace {

using OTX::Exceptions_e;

// One line a kind. Classes that aren't here exist in documents only: no exception is of their kind.
const std::pair<Exceptions_e, const std::type_info*> kinds[] = {
    {Exceptions_e::Exception, &typeid(Exception)},
    {Exceptions_e::InvalidReferenceException, &typeid(InvalidReferenceException)},
    {Exceptions_e::OutOfBoundsException, &typeid(OutOfBoundsException)},
    {Exceptions_e::ArithmeticException, &typeid(ArithmeticException)},
    {Exceptions_e::AmbiguousCallException, &typeid(AmbiguousCallException)},
    {Exceptions_e::TypeMismatchException, &typeid(TypeMismatchException)},
    {Exceptions_e::UserException, &typeid(UserException)},
    {Exceptions_e::DiagComException, &typeid(DiagCom::DiagComException)},
    {Exceptions_e::UnknownTargetException, &typeid(DiagCom::UnknownTargetException)},
    {Exceptions_e::AmbiguousSemanticException, &typeid(DiagCom::AmbiguousSemanticException)},
    {Exceptions_e::UnknownResponseException, &typeid(DiagCom::UnknownResponseException)},
    {Exceptions_e::IncompleteParameterizationException, &typeid(DiagCom::IncompleteParameterizationException)},
    {Exceptions_e::InvalidStateException, &typeid(DiagCom::InvalidStateException)},
    // The name of a term, which nothing raises; this is meant.
    {Exceptions_e::GetDiagServiceFromException, &typeid(DiagCom::GetDiagServiceFromException)},
    {Exceptions_e::UnknownComChannelException, &typeid(DiagCom::UnknownComChannelException)},
    {Exceptions_e::LossOfComException, &typeid(DiagCom::LossOfComException)},
    {Exceptions_e::QuantityException, &typeid(Quantities::QuantityException)},
    {Exceptions_e::UnknownUnitException, &typeid(Quantities::UnknownUnitException)},
    {Exceptions_e::InvalidConversionException, &typeid(Quantities::InvalidConversionException)},
    {Exceptions_e::StringUtilException, &typeid(StringUtil::StringUtilException)},
    {Exceptions_e::UnsupportedEncodingException, &typeid(StringUtil::UnsupportedEncodingException)},
    {Exceptions_e::ProviderException, &typeid(ExternalServiceProvider::ProviderException)},
    {Exceptions_e::ProviderServiceException, &typeid(ExternalServiceProvider::ProviderServiceException)},
    {Exceptions_e::ProviderDisposedException, &typeid(ExternalServiceProvider::ProviderDisposedException)},
    {Exceptions_e::ConfigurationException, &typeid(ExternalServiceProvider::ConfigurationException)},
    {Exceptions_e::ExecuteException, &typeid(ExternalServiceProvider::ExecuteException)},
    {Exceptions_e::FlashException, &typeid(Flash::FlashException)},
    {Exceptions_e::UnsupportedFormatException, &typeid(Flash::UnsupportedFormatException)},
    {Exceptions_e::PersistenceException, &typeid(Persistence::PersistenceException)},
    {Exceptions_e::PersistenceSaveException, &typeid(Persistence::PersistenceSaveException)},
    {Exceptions_e::ActivateEthernetException, &typeid(ComInterface::ActivateEthernetException)},
    {Exceptions_e::ComInterfaceException, &typeid(ComInterface::ComInterfaceException)},
    {Exceptions_e::IgnitionStateException, &typeid(ComInterface::IgnitionStateException)},
    {Exceptions_e::NoDefaultComInterfaceException, &typeid(ComInterface::NoDefaultComInterfaceException)},
    {Exceptions_e::VCINotConnectedException, &typeid(ComInterface::VCINotConnectedException)},
    {Exceptions_e::FileAccessException, &typeid(File::FileAccessException)},
    {Exceptions_e::FileException, &typeid(File::FileException)},
    {Exceptions_e::FileFormatException, &typeid(File::FileFormatException)},
    {Exceptions_e::FileLockException, &typeid(File::FileLockException)},
    {Exceptions_e::FileNotFoundException, &typeid(File::FileNotFoundException)},
    {Exceptions_e::FileOpenException, &typeid(File::FileOpenException)},
    {Exceptions_e::FileSaveException, &typeid(File::FileSaveException)},
};

// Before any document is loaded.
[[maybe_unused]] const bool registered = [] {
    for (const auto& [kind, type] : kinds) COtxExceptions::Add(kind, *type);
    return true;
}();

}  // namespace

}  // namespace otxns
