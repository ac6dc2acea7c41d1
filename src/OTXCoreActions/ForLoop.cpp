// The ForLoop: counts from start to end, both included. The end is evaluated once.
#include <OTXCoreActions/LoopBody.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <otx/value/COtxInt.h>

#include <limits>

namespace otxns {

namespace {

// The value library's overflow at the last integer.
long long following(long long number) {
    if (number < std::numeric_limits<long long>::max()) [[likely]]
        return number + 1;
    return (COtxInt(number) + COtxInt(1)).Int();
}

long long valueOf(const IntegerVariable& counter, OtxContext& context) {
    const Name& name = counter.name().key();
    if (long long number = 0; !counter.path().present() && context.Variables().GetInteger(name, number)) return number;
    return readVariable(context, name, counter.path()).Int();
}

}  // namespace

// The counter is read back after each iteration, so a body that assigns it moves the loop. It ends as the end plus 1,
// or after a Break as the value at the head of the iteration that broke; both are meant. A Break for an outer loop
// passes before the counter is written.
FlowExit run(const ForLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName) {
    const IntegerVariable& counter = loop.counter();
    long long i = evaluateInteger(loop.start(), context);
    const long long last = evaluateInteger(loop.end(), context);
    while (i <= last) {
        assignInteger(counter, context, i);
        const Iteration iteration = iterate(body, context, loopName);
        if (iteration.exit) return iteration.exit;
        if (!iteration.goesOn) break;
        i = following(valueOf(counter, context));
    }
    assignInteger(counter, context, i);
    return {};
}

template <>
void ForLoop_impl<ForLoop_base>::exec(OtxContext& context, const Flow& body, const OtxName& loopName) const {
    run(*this, context, body, loopName).raise();
}

}  // namespace otxns
