// Loads the document of a command.
#include "program/Load.h"

#include "program/Inputs.h"
#include "program/UsageError.h"

#include <velkotx/DocumentException.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <istream>

namespace velkotx::host {

namespace {

Outcome unloadable(const char* reason) {
    return {Outcome::Kind::unloadable, COtxValue(), reason, {}};
}

Outcome unloadable(const DocumentException& error) {
    return {Outcome::Kind::unloadable, COtxValue(), error.what(), {}, error.line(), error.column(), error.suggestion()};
}

template <class Open>
Loaded attempt(const Open& open) {
    try {
        return open();
    } catch (const UsageError&) {
        throw;
    } catch (const DocumentException& error) {
        return unloadable(error);
    } catch (const std::exception& error) {
        return unloadable(error.what());
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return unloadable("unknown exception");
    }
}

}  // namespace

Loaded load(Inputs& inputs, const std::string& document) {
    return attempt([&] { return CreateSequencer(*inputs.open(document)); });
}

Loaded load(std::istream& document) {
    return attempt([&] { return CreateSequencer(document); });
}

}  // namespace velkotx::host
