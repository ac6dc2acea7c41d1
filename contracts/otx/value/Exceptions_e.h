// The kinds of OTX exceptions by their numbers.
#pragma once

namespace OTX {

// Each kind is named after the schema class that a Handler of a document names (ISO 13209-2, -3).
enum class Exceptions_e : int {
    Exception = 0,
    InvalidReferenceException = 1,
    OutOfBoundsException = 2,
    ArithmeticException = 3,
    AmbiguousCallException = 4,
    TypeMismatchException = 5,
    UserException = 6,
    DiagComException = 7,
    UnknownTargetException = 8,
    AmbiguousSemanticException = 9,
    UnknownResponseException = 10,
    IncompleteParameterizationException = 11,
    InvalidStateException = 12,
    GetDiagServiceFromException = 13,
    UnknownComChannelException = 14,
    LossOfComException = 15,
    QuantityException = 16,
    UnknownUnitException = 17,
    InvalidConversionException = 18,
    StringUtilException = 19,
    UnsupportedEncodingException = 20,
    ProviderException = 21,
    ProviderServiceException = 22,
    ProviderDisposedException = 23,
    ConfigurationException = 24,
    ExecuteException = 25,
    FlashException = 26,
    UnsupportedFormatException = 27,
    PersistenceException = 28,
    PersistenceSaveException = 29,
    ActivateEthernetException = 30,
    ComInterfaceException = 31,
    IgnitionStateException = 32,
    NoDefaultComInterfaceException = 33,
    VCINotConnectedException = 34,
    FileAccessException = 35,
    FileException = 36,
    FileFormatException = 37,
    FileLockException = 38,
    FileNotFoundException = 39,
    FileOpenException = 40,
    FileSaveException = 41
};

}  // namespace OTX
