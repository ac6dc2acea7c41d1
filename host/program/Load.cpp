// Loads the document of a command.
#include "program/Load.h"

#include "program/Inputs.h"
#include "program/UsageError.h"

#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <istream>

namespace velkotx::host {

namespace {

Outcome unloadable(const char* reason) {
    return {Outcome::Kind::unloadable, COtxValue(), reason, {}};
}

}  // namespace

std::variant<std::shared_ptr<Sequencer>, Outcome> load(Inputs& inputs, const std::string& document) {
    try {
        return CreateSequencer(*inputs.open(document));
    } catch (const UsageError&) {
        throw;
    } catch (const std::exception& error) {
        return unloadable(error.what());
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return unloadable("unknown exception");
    }
}

}  // namespace velkotx::host
