// The Sequencer: one document and the context of its runs.
#pragma once

#include <velkotx/Sequencer.h>

#include <iosfwd>
#include <memory>
#include <string>

namespace otxns {

class Otx;
class OtxContext;

// Does all its work at construction: joins the thread groups as a root, starts the XML platform, reads the document,
// makes the context. A failure there leaves the first two without their counterparts.
class Sequencer_impl : public velkotx::Sequencer {
public:
    explicit Sequencer_impl(std::istream& document);
    Sequencer_impl(const Sequencer_impl&) = delete;
    Sequencer_impl& operator=(const Sequencer_impl&) = delete;
    ~Sequencer_impl() override;

    void Save(std::ostream& out) override;

    void SetHost(std::weak_ptr<velkotx::HostEventSink> host) override;
    void SetDiagCom(std::shared_ptr<DiagComHost> diagCom) override;
    void SetFlash(std::shared_ptr<FlashHost> flash) override;
    void SetPersistence(std::shared_ptr<PersistenceHost> persistence) override;
    void SetFileStore(std::shared_ptr<HvtFileStore> fileStore) override;
    void SetComInterface(std::shared_ptr<ComInterfaceHost> comInterface) override;
    void SetContextVariables(const COtxValue& variables) override;
    void SetTranslations(const COtxValue& translations) override;

    COtxValue Run(const std::string& procedure, const COtxValue& arguments, bool startStopped) override;
    COtxValue Control(const std::string& command, const COtxValue& parameters) override;
    void SendEvent(const COtxValue& event) override;

    const Otx& document() const noexcept { return *otx; }

private:
    // Read the document into `otx`. For the constructor only.
    void LoadXML(std::istream& document);
    void LoadCDR(std::istream& document);

    COtxValue OtxMain(const std::string& procedure, const COtxValue& arguments, bool startStopped);

    // The context points into the document, and goes first.
    std::shared_ptr<Otx> otx;
    std::shared_ptr<OtxContext> context;
};

}  // namespace otxns
