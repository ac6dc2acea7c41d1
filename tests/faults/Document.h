// What the parts do with a document.
#pragma once

#include "FailingMemory.h"
#include "Series.h"

#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <memory>
#include <string>

namespace faults {

std::shared_ptr<velkotx::Sequencer> load(const std::string& document);
std::string compiledForm(velkotx::Sequencer& sequencer);
std::string compiledForm(const std::string& document);
// What a run has given, as JSON.
std::string textOf(const COtxValue& outParameters);
// That of a run of the procedure main.
std::string run(velkotx::Sequencer& sequencer);

// The work while memory refuses. It is told where to put what it gives; what it throws comes with the attempt.
template <class Work>
Attempt withoutMemory(std::size_t place, FailingMemory::Extent extent, const Work& work) {
    Attempt attempt;
    const FailingMemory memory(place, extent);
    try {
        work(attempt.result);
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        attempt.failure = std::current_exception();
    }
    attempt.wasHit = memory.hasFailed();
    return attempt;
}

// The kinds of such series: one call that fails, or that one and all others.
struct Refusal {
    const char* name;
    FailingMemory::Extent extent;
};
inline constexpr Refusal refusals[] = {{"once", FailingMemory::Extent::one}, {"onwards", FailingMemory::Extent::onwards}};

}  // namespace faults
