// What an operator does to the run of a Sequencer.
#include "operator/SequencerPort.h"

#include "text/Refusal.h"

#include <otx/value/COtxMap.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <exception>

namespace velkotx::host {

namespace {

template <typename Call>
std::optional<std::string> refusalBy(Call call) {
    try {
        call();
        return {};
    } catch (const std::exception& error) {
        return refusalOf(error);
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return "unknown exception";
    }
}

}  // namespace

std::optional<std::string> SequencerPort::sendEvent(const COtxValue& event) {
    return refusalBy([&] { sequencer_.SendEvent(event); });
}

std::optional<std::string> SequencerPort::cancel() {
    return refusalBy([&] { sequencer_.Control("cancel", COtxMap()); });
}

}  // namespace velkotx::host
