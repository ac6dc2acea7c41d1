// Each kind of OTX exception belongs to one class of documents, which handlers name.
#include <otx/value/COtxException.h>
#include <otx/value/COtxExceptions.h>
#include <otx/value/IException.h>

#include <cxxabi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>

namespace {

using Kind = OTX::Exceptions_e;

const std::pair<Kind, const char*> classes[] = {
    {Kind::Exception, "otxns::Exception_impl<otxns::Exception_base>"},
    {Kind::InvalidReferenceException, "otxns::InvalidReferenceException"},
    {Kind::OutOfBoundsException, "otxns::OutOfBoundsException"},
    {Kind::ArithmeticException, "otxns::ArithmeticException"},
    {Kind::AmbiguousCallException, "otxns::AmbiguousCallException"},
    {Kind::TypeMismatchException, "otxns::TypeMismatchException"},
    {Kind::UserException, "otxns::UserException_impl<otxns::UserException_base>"},
    {Kind::DiagComException, "DiagCom::DiagComException"},
    {Kind::UnknownTargetException, "DiagCom::UnknownTargetException"},
    {Kind::AmbiguousSemanticException, "DiagCom::AmbiguousSemanticException"},
    {Kind::UnknownResponseException, "DiagCom::UnknownResponseException"},
    {Kind::IncompleteParameterizationException, "DiagCom::IncompleteParameterizationException"},
    {Kind::InvalidStateException, "DiagCom::InvalidStateException"},
    {Kind::GetDiagServiceFromException, "DiagCom::GetDiagServiceFromException"},
    {Kind::UnknownComChannelException, "DiagCom::UnknownComChannelException"},
    {Kind::LossOfComException, "DiagCom::LossOfComException"},
    {Kind::QuantityException, "Quantities::QuantityException"},
    {Kind::UnknownUnitException, "Quantities::UnknownUnitException"},
    {Kind::InvalidConversionException, "Quantities::InvalidConversionException"},
    {Kind::StringUtilException, "StringUtil::StringUtilException"},
    {Kind::UnsupportedEncodingException, "StringUtil::UnsupportedEncodingException"},
    {Kind::ProviderException, "ExternalServiceProvider::ProviderException"},
    {Kind::ProviderServiceException, "ExternalServiceProvider::ProviderServiceException"},
    {Kind::ProviderDisposedException, "ExternalServiceProvider::ProviderDisposedException"},
    {Kind::ConfigurationException, "ExternalServiceProvider::ConfigurationException"},
    {Kind::ExecuteException, "ExternalServiceProvider::ExecuteException"},
    {Kind::FlashException, "Flash::FlashException"},
    {Kind::UnsupportedFormatException, "Flash::UnsupportedFormatException"},
    {Kind::PersistenceException, "Persistence::PersistenceException"},
    {Kind::PersistenceSaveException, "Persistence::PersistenceSaveException"},
    {Kind::ActivateEthernetException, "ComInterface::ActivateEthernetException"},
    {Kind::ComInterfaceException, "ComInterface::ComInterfaceException"},
    {Kind::IgnitionStateException, "ComInterface::IgnitionStateException"},
    {Kind::NoDefaultComInterfaceException, "ComInterface::NoDefaultComInterfaceException"},
    {Kind::VCINotConnectedException, "ComInterface::VCINotConnectedException"},
    {Kind::FileAccessException, "File::FileAccessException"},
    {Kind::FileException, "File::FileException"},
    {Kind::FileFormatException, "File::FileFormatException"},
    {Kind::FileLockException, "File::FileLockException"},
    {Kind::FileNotFoundException, "File::FileNotFoundException"},
    {Kind::FileOpenException, "File::FileOpenException"},
    {Kind::FileSaveException, "File::FileSaveException"},
};

std::string nameOf(const std::type_info& type) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                           &std::free);
    return status == 0 ? name.get() : type.name();
}

TEST(ExceptionClass, IsThatOfTheKind) {
    int number = 0;
    for (const auto& [kind, name] : classes) {
        EXPECT_EQ(static_cast<int>(kind), number++);
        EXPECT_EQ(nameOf(COtxExceptions::Type(kind)), name);
        EXPECT_EQ(nameOf(COtxException(kind, "").Exception().Type()), name);
    }
    EXPECT_EQ(COtxExceptions::Type(static_cast<Kind>(number)), typeid(void)) << "the last one";
}

}  // namespace
