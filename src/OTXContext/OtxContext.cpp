// Making the context of a document, and making the document ready to run.
#include <OTXContext/OtxContext.h>
#include <OTXExternalServiceProvider/HostServiceInterface.h>
#include <OTXHMIIF/HMI.h>
#include <OtxVars/Cell.h>
#include <OtxVars/OtxContextVariable.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <velkotx/Exceptions.h>

#include <utility>

namespace otxns {

namespace {

std::uint64_t nextSerial() {
    static constinit std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

OtxContext::OtxContext() : serial_(nextSerial()) {
    tables.push_back(std::make_unique<const ProcedureTable>());
    procedures = tables.back().get();
}

OtxContext::~OtxContext() {
    hmi.reset();  // its threads use what else is here
}

void OtxContext::PrepareRun(const std::shared_ptr<Otx>& document) {
    addProcedures(document);
    if (Procedures().empty()) throw velkotx::OTXRuntimeException("no procedures defined", "");
    if (document->signatures().present()) processSignatures(*document->signatures());
    if (document->declarations().present()) declareGlobals(*document->declarations());
    ApplyContextVars(*document);
}

void OtxContext::addProcedures(const std::shared_ptr<Otx>& document) {
    const std::lock_guard guard(documentLock);
    otx = document;
    // A document doesn't change, so that working through it once is enough.
    if (tables.back()->holds(document)) return;
    auto table = std::make_unique<ProcedureTable>(*tables.back());
    table->add(document);
    tables.push_back(std::move(table));
    procedures.store(tables.back().get(), std::memory_order_release);
}

void OtxContext::declareGlobals(const GlobalDeclarations& declarations) {
    for (const auto& constant : declarations.constant()) constant.declare(*this, true);
    for (const auto& variable : declarations.variable()) variable.declare(*this, true);
}

void OtxContext::ApplyContextVars(const Otx& document) {
    if (contextVariables.Type() == OTX::ValueType::Map) {
        for (const auto& [key, value] : contextVariables.Map()) {
            const std::string& name = key.String();
            OTX_TRACE(4, "Adding context variable " << name);
            vars.ContextVars().Add(name, makeCell<OtxContextVariable>(value));
        }
    }
    if (!document.declarations().present()) return;
    for (const auto& declaration : document.declarations()->context()) declaration.declare(*this, true);
}

}  // namespace otxns
