// The exceptions of the boundary.
#include <velkotx/DocumentException.h>
#include <velkotx/Exceptions.h>
#include <velkotx/LoopExceptions.h>

namespace velkotx {

BoundaryException::BoundaryException(const std::string& what, const std::string& text)
    : std::runtime_error(what), text_(text) {}

BoundaryException::~BoundaryException() = default;
OTXRuntimeException::~OTXRuntimeException() = default;
OTXSequenceException::~OTXSequenceException() = default;

DocumentException::DocumentException(const std::string& what, std::size_t line, std::size_t column,
                                     const std::string& suggestion)
    : std::runtime_error(what), line_(line), column_(column), suggestion_(suggestion) {}

DocumentException::~DocumentException() = default;

LoopException::~LoopException() = default;
BreakException::~BreakException() = default;
ContinueException::~ContinueException() = default;

}  // namespace velkotx
