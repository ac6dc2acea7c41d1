// The two exceptions with which a run reports failure to the host.
#pragma once

#include <otx/Export.h>

#include <stdexcept>
#include <string>

namespace velkotx {

// What every boundary exception has beside what(): a second text. Values of these classes own their strings, may be
// copied and read on any thread, and throw nothing but std::bad_alloc when they are made.
class OTX_API BoundaryException : public std::runtime_error {
public:
    BoundaryException(const std::string& what, const std::string& text);
    BoundaryException(const BoundaryException&) = default;
    ~BoundaryException() override;

    // The second text, as UTF-8. Lives as long as the exception.
    const char* text() const noexcept { return text_.c_str(); }

private:
    std::string text_;
};

// A failure of the machinery: no document, no procedure of that name, a host object that is missing, an internal error,
// a cancelled run. A sequence can't catch it.
class OTX_API OTXRuntimeException : public BoundaryException {
public:
    using BoundaryException::BoundaryException;
    OTXRuntimeException(const OTXRuntimeException&) = default;
    ~OTXRuntimeException() override;
};

// An OTX exception (ISO 13209-2, exception handling) that no Handler of the sequence caught. what() is the name of the
// exception's kind, such as "ArithmeticException"; text() is the exception's text.
class OTX_API OTXSequenceException : public BoundaryException {
public:
    using BoundaryException::BoundaryException;
    OTXSequenceException(const OTXSequenceException&) = default;
    ~OTXSequenceException() override;
};

}  // namespace velkotx
