// One iteration of a loop's body.
#pragma once

#include <OTXCoreActions/Statements.h>
#include <velkotx/LoopExceptions.h>

#include <string>

namespace otxns {

// What an iteration means for its loop: to go on, to end after its own Break, or to hand up what is for someone else.
struct Iteration {
    bool goesOn;
    FlowExit exit;
};

// Whether the Break or Continue is for the loop of that name.
inline bool isFor(const velkotx::LoopException& exception, const std::string& loopName) {
    return exception.target().empty() || exception.target() == loopName;
}

// Runs the body once. A thrown Break or Continue for an outer loop goes on to it as a new exception.
[[gnu::always_inline]] inline Iteration iterate(const Flow& body, OtxContext& context, const OtxName& loopName) {
    try {
        const FlowExit exit = run(body, context);
        if (!exit || exit.isContinueOf(loopName)) [[likely]]
            return {true, {}};
        if (exit.isBreakOf(loopName)) return {false, {}};
        return {false, exit};
    } catch (velkotx::BreakException& exception) {
        if (!isFor(exception, loopName)) throw velkotx::BreakException(exception.target());
        return {false, {}};
    } catch (velkotx::ContinueException& exception) {
        if (!isFor(exception, loopName)) throw velkotx::ContinueException(exception.target());
        return {true, {}};
    }
}

}  // namespace otxns
