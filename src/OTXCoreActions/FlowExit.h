// How a flow ends: by falling through, or by a Return, Break or Continue.
#pragma once

#include <schema/core-forward.h>

#include <string>

namespace otxns {

// A Return, Break or Continue travels as a thrown exception. From one statement of the core to the next it is handed up
// as a result instead, which costs a hundredth: each of these statements has a run(), whose result says how it ended,
// and an exec() that throws for what run() hands up. Who calls exec() sees exceptions only; who calls run() sees both.
class FlowExit {
public:
    FlowExit() noexcept = default;
    static FlowExit of(const Return& node);
    static FlowExit of(const Break& node);
    static FlowExit of(const Continue& node);

    // Whether control leaves the flow, and how.
    explicit operator bool() const noexcept { return kind_ != Kind::fallThrough; }
    bool isReturn() const noexcept { return kind_ == Kind::returned; }
    bool isBreakOf(const std::string& loop) const noexcept { return kind_ == Kind::broke && isFor(loop); }
    bool isContinueOf(const std::string& loop) const noexcept { return kind_ == Kind::continued && isFor(loop); }

    // Throws the exception; nothing for a fall-through.
    void raise() const {
        if (kind_ != Kind::fallThrough) [[unlikely]]
            throwException();
    }

private:
    enum class Kind : int { fallThrough, returned, broke, continued };

    FlowExit(Kind kind, const std::string& name) noexcept : kind_(kind), name_(&name) {}
    // Without a target it is for the innermost loop.
    bool isFor(const std::string& loop) const noexcept { return name_->empty() || *name_ == loop; }
    [[noreturn]] void throwException() const;

    Kind kind_ = Kind::fallThrough;
    // The target's name or the node's id, in the document.
    const std::string* name_ = nullptr;
};

}  // namespace otxns
