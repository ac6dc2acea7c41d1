// One iteration of a loop's body.
#pragma once

#include <OTXContext/OtxContext.h>
#include <velkotx/LoopExceptions.h>

#include <string>

namespace otxns {

enum class Iteration { ended, left };

// Whether the Break or Continue is for the loop of that name.
inline bool isFor(const velkotx::LoopException& exception, const std::string& loopName) {
    return exception.target().empty() || exception.target() == loopName;
}

// Runs the body once; left after a Break. What is for an outer loop goes on to it as a new exception. Always inlined: one
// frame less on the way of every exception that passes.
[[gnu::always_inline]] inline Iteration iterate(const Flow& body, OtxContext& context, const OtxName& loopName) {
    try {
        body.exec(context);
    } catch (velkotx::BreakException& exception) {
        if (!isFor(exception, loopName)) throw velkotx::BreakException(exception.target());
        return Iteration::left;
    } catch (velkotx::ContinueException& exception) {
        if (!isFor(exception, loopName)) throw velkotx::ContinueException(exception.target());
    }
    return Iteration::ended;
}

}  // namespace otxns
