// Construction and destruction of the Sequencer, and what it hands on to its context.
#include <OTXContext/OtxContext.h>
#include <Unwind.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <otx/event/COtxEventSource.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <iomanip>
#include <istream>
#include <utility>

namespace otxns {

namespace {

// Whether the first word is that of an XML declaration; leaves the stream where the document begins. White space ahead
// is skipped for XML only.
bool beginsAsXml(std::istream& document) {
    static constexpr std::string_view declaration = "<?xml";
    document >> std::ws;
    const auto begin = document.tellg();
    std::string word;
    // One character more tells a longer word, without reading a large file into memory.
    document >> std::setw(declaration.size() + 1) >> word;
    document.clear();
    const bool isXml = word == declaration;
    document.seekg(isXml ? begin : std::istream::pos_type(0));
    return isXml;
}

}  // namespace

// A document that can't be loaded leaves nothing behind.
Sequencer_impl::Sequencer_impl(std::istream& document) {
    const bool isNewRoot = COtxEventSource::ThreadGroup().AddRoot();
    schema::XmlPlatform::initialise();
    try {
        if (beginsAsXml(document))
            LoadXML(document);
        else
            LoadCDR(document);
        context = std::make_shared<OtxContext>();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        otx.reset();
        schema::XmlPlatform::terminate();
        if (isNewRoot) COtxEventSource::ThreadGroup().RemoveRoot(std::this_thread::get_id());
        throw;
    }
}

// The root that goes is that of the destroying thread, whoever made the Sequencer. This is meant.
Sequencer_impl::~Sequencer_impl() {
    // The host may come back from inside a message of a screen's thread.
    context->EndScreens();
    context.reset();
    otx.reset();
    schema::XmlPlatform::terminate();
    COtxEventSource::ThreadGroup().RemoveRoot(std::this_thread::get_id());
}

void Sequencer_impl::SetHost(std::weak_ptr<velkotx::HostEventSink> host) {
    context->SetHost(std::move(host));
}

void Sequencer_impl::SetDiagCom(std::shared_ptr<DiagComHost> diagCom) {
    context->SetDiagCom(std::move(diagCom));
}

void Sequencer_impl::SetFlash(std::shared_ptr<FlashHost> flash) {
    context->SetFlash(std::move(flash));
}

void Sequencer_impl::SetPersistence(std::shared_ptr<PersistenceHost> persistence) {
    context->SetPersistence(std::move(persistence));
}

void Sequencer_impl::SetFileStore(std::shared_ptr<HvtFileStore> fileStore) {
    context->SetFileStore(std::move(fileStore));
}

void Sequencer_impl::SetComInterface(std::shared_ptr<ComInterfaceHost> comInterface) {
    context->SetComInterface(std::move(comInterface));
}

void Sequencer_impl::SetContextVariables(const COtxValue& variables) {
    context->SetContextVariables(variables);
}

void Sequencer_impl::SetTranslations(const COtxValue& translations) {
    context->SetTranslations(translations);
}

}  // namespace otxns
