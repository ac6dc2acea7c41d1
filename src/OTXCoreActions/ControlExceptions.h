// The exceptions with which control leaves a flow early, beside those of loops. None of them is an OTX exception.
#pragma once

#include <velkotx/LoopExceptions.h>

#include <string>
#include <utility>

namespace velkotx {

// Thrown by a Return node; ends the procedure.
class ReturnException {
public:
    explicit ReturnException(std::string nodeId) : nodeId_(std::move(nodeId)) {}
    ReturnException(const ReturnException&) = default;
    virtual ~ReturnException();

    const std::string& nodeId() const noexcept { return nodeId_; }

private:
    std::string nodeId_;
};

// Thrown by a checkpoint of a cancelled flow and by TerminateLanes; ends a lane, else the run.
class CancelException {
public:
    CancelException() = default;
    CancelException(const CancelException&) = default;
    virtual ~CancelException();
};

}  // namespace velkotx
