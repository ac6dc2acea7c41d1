// The actions that load and save a variable by its name in the host's store.
#include <OTXCoreTerms/Content.h>
#include <otx/host/PersistenceHost.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxException.h>
#include <schema/Persistence.h>

#include <exception>

namespace Persistence {

// The key is the name alone: variables of one name share a value, whatever their procedure. A path is no part of it.
template <>
void Load_impl<Load_base>::exec(otxns::OtxContext& context) const {
    COtxValue stored;
    const bool isStored = context.Persistence().Load(value().name(), stored);
    if (isStored) value().write(context, stored);
    if (isLoaded().present()) isLoaded()->write(context, COtxBool(isStored));
}

// Every failure becomes the one exception and loses its text, unlike those of Load; this is meant.
template <>
void Save_impl<Save_base>::exec(otxns::OtxContext& context) const {
    try {
        const COtxValue current = otxns::settled(value().read(context), context);
        context.Persistence().Save(value().name(), current);
    } catch (const std::exception&) {
        throw COtxException(OTX::Exceptions_e::PersistenceSaveException, "Failed to save persistence value");
    }
}

}  // namespace Persistence
