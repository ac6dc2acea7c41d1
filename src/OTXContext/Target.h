// The flows that a command of run control is for.
#pragma once

#include <OTXContext/OtxContext.h>

#include <optional>
#include <string>
#include <thread>

namespace otxns {

class OtxContext::Target {
public:
    // The command's "flowId"; a negative one, or none, means all flows. Throws std::runtime_error, "Invalid thread id:
    // ", for a number that no flow has.
    Target(const std::map<std::thread::id, OtxFlow>& flows, const COtxValue& params);

    bool isOne() const noexcept { return thread_.has_value(); }
    bool matches(std::thread::id thread) const noexcept { return !thread_ || *thread_ == thread; }
    const std::string& flowId() const noexcept { return flowId_; }

private:
    std::optional<std::thread::id> thread_;
    std::string flowId_;
};

}  // namespace otxns
