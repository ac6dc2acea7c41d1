// The actions that load and save a variable by its name in the host's store.
#include <OTXCoreTerms/Content.h>
#include <otx/host/PersistenceHost.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxException.h>
#include <otx/value/Functions.h>
#include <schema/Persistence.h>

#include <exception>

namespace Persistence {

namespace {

// What the store may look at while another lane changes the container.
COtxValue settled(const COtxValue& live, otxns::OtxContext& context) {
    if (!otxns::holdsContent(live)) return live;
    return otxns::lookInto(context, [&] { return OTX::DeepCopy(live); });
}

}  // namespace

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
        const COtxValue current = value().read(context);
        context.Persistence().Save(value().name(), settled(current, context));
    } catch (const std::exception&) {
        throw COtxException(OTX::Exceptions_e::PersistenceSaveException, "Failed to save persistence value");
    }
}

}  // namespace Persistence
