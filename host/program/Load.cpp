// Loads the document of a command.
#include "program/Load.h"

#include "program/Inputs.h"
#include "program/NearlyXml.h"
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
    Outcome outcome{Outcome::Kind::unloadable, COtxValue(), error.what(), {}, error.line(), error.column()};
    if (*error.suggestion() != '\0')
        outcome.hint = std::string("did you mean '") + error.suggestion() + "'?";
    return outcome;
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
    std::unique_ptr<std::istream> stream;
    Loaded loaded = attempt([&] {
        stream = inputs.open(document);
        return CreateSequencer(*stream);
    });
    auto* const outcome = std::get_if<Outcome>(&loaded);
    if (outcome != nullptr && stream != nullptr && isNearlyXml(*stream))
        outcome->hint = "a document as XML begins with <?xml and a blank, without a byte order mark and not in UTF-16";
    return loaded;
}

Loaded load(std::istream& document) {
    return attempt([&] { return CreateSequencer(document); });
}

}  // namespace velkotx::host
