// Which class of the document a Handler names for each kind of exception, by the kind's number.
#include <otx/value/COtxException.h>
#include <otx/value/COtxExceptions.h>
#include <otx/value/IException.h>

#include <schema/ComInterface.h>
#include <schema/DiagCom.h>
#include <schema/ExternalServiceProvider.h>
#include <schema/File.h>
#include <schema/Flash.h>
#include <schema/Persistence.h>
#include <schema/Quantities.h>
#include <schema/StringUtil.h>
#include <schema/core.h>

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

struct Kind {
    const std::type_info* type;
    const char* name;
};

TEST(ExceptionKinds, HaveTheirNumbersNamesAndClasses) {
    const Kind kinds[] = {
        {&typeid(otxns::Exception), "Exception"},
        {&typeid(otxns::InvalidReferenceException), "InvalidReferenceException"},
        {&typeid(otxns::OutOfBoundsException), "OutOfBoundsException"},
        {&typeid(otxns::ArithmeticException), "ArithmeticException"},
        {&typeid(otxns::AmbiguousCallException), "AmbiguousCallException"},
        {&typeid(otxns::TypeMismatchException), "TypeMismatchException"},
        {&typeid(otxns::UserException), "UserException"},
        {&typeid(DiagCom::DiagComException), "DiagComException"},
        {&typeid(DiagCom::UnknownTargetException), "UnknownTargetException"},
        {&typeid(DiagCom::AmbiguousSemanticException), "AmbiguousSemanticException"},
        {&typeid(DiagCom::UnknownResponseException), "UnknownResponseException"},
        {&typeid(DiagCom::IncompleteParameterizationException), "IncompleteParameterizationException"},
        {&typeid(DiagCom::InvalidStateException), "InvalidStateException"},
        {&typeid(DiagCom::GetDiagServiceFromException), "GetDiagServiceFromException"},
        {&typeid(DiagCom::UnknownComChannelException), "UnknownComChannelException"},
        {&typeid(DiagCom::LossOfComException), "LossOfComException"},
        {&typeid(Quantities::QuantityException), "QuantityException"},
        {&typeid(Quantities::UnknownUnitException), "UnknownUnitException"},
        {&typeid(Quantities::InvalidConversionException), "InvalidConversionException"},
        {&typeid(StringUtil::StringUtilException), "StringUtilException"},
        {&typeid(StringUtil::UnsupportedEncodingException), "UnsupportedEncodingException"},
        {&typeid(ExternalServiceProvider::ProviderException), "ProviderException"},
        {&typeid(ExternalServiceProvider::ProviderServiceException), "ProviderServiceException"},
        {&typeid(ExternalServiceProvider::ProviderDisposedException), "ProviderDisposedException"},
        {&typeid(ExternalServiceProvider::ConfigurationException), "ConfigurationException"},
        {&typeid(ExternalServiceProvider::ExecuteException), "ExecuteException"},
        {&typeid(Flash::FlashException), "FlashException"},
        {&typeid(Flash::UnsupportedFormatException), "UnsupportedFormatException"},
        {&typeid(Persistence::PersistenceException), "PersistenceException"},
        {&typeid(Persistence::PersistenceSaveException), "PersistenceSaveException"},
        {&typeid(ComInterface::ActivateEthernetException), "ActivateEthernetException"},
        {&typeid(ComInterface::ComInterfaceException), "ComInterfaceException"},
        {&typeid(ComInterface::IgnitionStateException), "IgnitionStateException"},
        {&typeid(ComInterface::NoDefaultComInterfaceException), "NoDefaultComInterfaceException"},
        {&typeid(ComInterface::VCINotConnectedException), "VCINotConnectedException"},
        {&typeid(File::FileAccessException), "FileAccessException"},
        {&typeid(File::FileException), "FileException"},
        {&typeid(File::FileFormatException), "FileFormatException"},
        {&typeid(File::FileLockException), "FileLockException"},
        {&typeid(File::FileNotFoundException), "FileNotFoundException"},
        {&typeid(File::FileOpenException), "FileOpenException"},
        {&typeid(File::FileSaveException), "FileSaveException"},
    };
    int number = 0;
    for (const Kind& kind : kinds) {
        const COtxException exception(static_cast<OTX::Exceptions_e>(number), "text");
        EXPECT_EQ(static_cast<int>(exception.Exception().Kind()), number);
        EXPECT_EQ(exception.Exception().Name(), kind.name) << number;
        EXPECT_TRUE(exception.Exception().Type() == *kind.type) << number << ' ' << exception.Exception().Type().name();
        ++number;
    }
    EXPECT_TRUE(COtxExceptions::Type(static_cast<OTX::Exceptions_e>(number)) == typeid(void));
}

// They can be named in documents, but no exception is of their kind. This is meant.
TEST(ExceptionKinds, LeaveTheOtherClassesOut) {
    for (const char* name : {"ConcurrentModificationException", "DataTypeException", "DiagComPlusException", "HmiException",
                             "ScreenException", "i18nException", "UnsupportedLocaleException"}) {
        OTX::Exceptions_e kind{};
        EXPECT_FALSE(COtxExceptions::Find(name, kind)) << name;
    }
}

}  // namespace
