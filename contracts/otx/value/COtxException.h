// The OTX exception as a value, and the two ways in which things fail.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/Exceptions_e.h>
#include <otx/value/IException.h>

#include <string>

// Two channels carry failures, and they never mix:
//
// - What a sequence may see and handle is a COtxException: type 12, thrown and caught as COtxValue, matched by a Handler
//   by the schema class of its kind. The value library raises nothing else (but std::bad_alloc), and neither should the
//   host's objects behind the OTX interfaces.
// - What ends a run is a velkotx::OTXRuntimeException (a std::runtime_error): the machinery itself failed, a host object is
//   missing, the run was cancelled. No Handler sees it. An OTX exception that no Handler took reaches the host as a
//   velkotx::OTXSequenceException.
//
// Immutable once made; what() is the text, or the kind's name when there is no text.
class OTX_API COtxException : public COtxValue {
public:
    explicit COtxException(OTX::Exceptions_e kind);
    COtxException(OTX::Exceptions_e kind, const std::string& text);
    COtxException(OTX::Exceptions_e kind, const std::string& qualifier, const std::string& text);
    // A UserException.
    COtxException(const std::string& qualifier, const std::string& text);
};
