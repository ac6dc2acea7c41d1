// The exceptions in which a Break or a Continue travels. A host meets one only when it leaves the run.
#pragma once

#include <otx/Export.h>

#include <string>
#include <utility>

namespace velkotx {

// A Break or Continue node on its way to its loop (ISO 13209-2, end nodes). One that no enclosing loop takes leaves
// Sequencer::Run as it is, a fault of the document. Values may be copied and read on any thread. Not derived from
// std::exception: nothing but a loop and the host is meant to catch it.
class OTX_API LoopException {
public:
    explicit LoopException(std::string target) : target_(std::move(target)) {}
    LoopException(const LoopException&) = default;
    virtual ~LoopException();

    // The name of the loop that it is meant for, as UTF-8; empty for the innermost.
    const std::string& target() const noexcept { return target_; }

private:
    std::string target_;
};

class OTX_API BreakException : public LoopException {
public:
    using LoopException::LoopException;
    BreakException(const BreakException&) = default;
    ~BreakException() override;
};

class OTX_API ContinueException : public LoopException {
public:
    using LoopException::LoopException;
    ContinueException(const ContinueException&) = default;
    ~ContinueException() override;
};

}  // namespace velkotx
