// How the diagnostic objects tell a sequence that something failed.
#pragma once

#include <otx/value/COtxException.h>

#include <string>

namespace velkotx::host {

// What an execution came to when there is no response to show.
struct DiagFailure {
    OTX::Exceptions_e kind;
    std::string text;
};

[[noreturn]] inline void fail(OTX::Exceptions_e kind, const std::string& text) { throw COtxException(kind, text); }

[[noreturn]] inline void fail(const DiagFailure& failure) { fail(failure.kind, failure.text); }

}  // namespace velkotx::host
