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
std::string compiledForm(const std::string& document);
// The out parameters of the procedure main, as JSON.
std::string run(velkotx::Sequencer& sequencer);

// The work while memory refuses. What it throws comes with the attempt.
template <class Work>
Attempt withoutMemory(std::size_t place, FailingMemory::Extent extent, const Work& work) {
    Attempt attempt;
    const FailingMemory memory(place, extent);
    try {
        work();
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
