// A Sequencer whose Run and Control do what a test says.
#pragma once

#include <velkotx/Sequencer.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

class FakeSequencer : public velkotx::Sequencer {
public:
    std::function<COtxValue()> run = [] { return COtxValue(); };
    std::function<COtxValue(const std::string&)> control = [](const std::string&) { return COtxValue(); };
    std::function<void(const COtxValue&)> sendEvent = [](const COtxValue&) { refuse(); };

    void Save(std::ostream&) override { refuse(); }
    void SetHost(std::weak_ptr<velkotx::HostEventSink>) override { refuse(); }
    void SetDiagCom(std::shared_ptr<DiagComHost>) override { refuse(); }
    void SetFlash(std::shared_ptr<FlashHost>) override { refuse(); }
    void SetPersistence(std::shared_ptr<PersistenceHost>) override { refuse(); }
    void SetFileStore(std::shared_ptr<HvtFileStore>) override { refuse(); }
    void SetComInterface(std::shared_ptr<ComInterfaceHost>) override { refuse(); }
    void SetContextVariables(const COtxValue&) override { refuse(); }
    void SetTranslations(const COtxValue&) override { refuse(); }
    COtxValue Run(const std::string&, const COtxValue&, bool) override { return run(); }
    COtxValue Control(const std::string& command, const COtxValue&) override { return control(command); }
    void SendEvent(const COtxValue& event) override { sendEvent(event); }

private:
    [[noreturn]] static void refuse() { throw std::logic_error("the test doesn't expect this call"); }
};
