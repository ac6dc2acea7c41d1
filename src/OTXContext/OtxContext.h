// The run-time state of one loaded document: what every exec, eval and declare receives.
#pragma once

#include <OTXContext/OtxFlow.h>
#include <OTXContext/ProcedureTable.h>
#include <OTXContext/SectionLock.h>
#include <OtxVars/OtxVars.h>
#include <otx/value/COtxValue.h>
#include <schema/core.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

class DiagComHost;
class FlashHost;
class PersistenceHost;
class HvtFileStore;
class ComInterfaceHost;

namespace velkotx {
class HostEventSink;
}
namespace OTX {
class HMI;
}
namespace ExternalServiceProvider {
class HostServiceInterface;
class ServiceProviderFactory;
}

namespace otxns {

// Made by Sequencer_impl and owned by it through a shared pointer; it lasts until the Sequencer goes. Nothing in it is
// reset between runs. Several threads may run at once.
//
// The road to the host's objects: each accessor throws OTXRuntimeException, such as "DiagCom not initialised", when the
// host installed none, at the moment of use.
//
// The order of the locks stands in src/README.md.
class OtxContext {
public:
    OtxContext();
    OtxContext(const OtxContext&) = delete;
    OtxContext& operator=(const OtxContext&) = delete;
    virtual ~OtxContext();

    // Installs the host's objects and data. Before the run, on one thread.
    void SetHost(std::weak_ptr<velkotx::HostEventSink> sink);
    void SetDiagCom(std::shared_ptr<DiagComHost> object);
    void SetFlash(std::shared_ptr<FlashHost> object);
    void SetPersistence(std::shared_ptr<PersistenceHost> object);
    void SetFileStore(std::shared_ptr<HvtFileStore> object);
    void SetComInterface(std::shared_ptr<ComInterfaceHost> object);
    void SetContextVariables(const COtxValue& values);
    void SetTranslations(const COtxValue& texts);

    OTX::HMI& HMI() const;
    DiagComHost& DiagCom() const;
    FlashHost& Flash() const;
    ComInterfaceHost& ComInterface() const;
    PersistenceHost& Persistence() const;
    HvtFileStore& FileStore() const;
    std::shared_ptr<ExternalServiceProvider::HostServiceInterface> HostService() const;
    std::shared_ptr<velkotx::HostEventSink> Host() const;
    // Made at the first call and kept. Any thread. Not a host's object: it never misses.
    ExternalServiceProvider::ServiceProviderFactory& ServiceProviderFactory();

    OtxVars& Variables() noexcept { return vars; }
    // The one lock of all MutexGroup statements.
    SectionLock& MutexGroupLock() noexcept { return mutexGroupLock; }
    // Held while an action changes what a list, map or byte field holds, while a term looks into one, and while the
    // content of variables is copied for the host, which may ask at any time. What several steps of a sequence do to
    // another lane's containers is theirs to guard.
    std::mutex& ContentLock() noexcept { return contentLock; }
    // Those of all PrepareRun so far. Any thread, without a lock.
    const ProcedureTable& Procedures() const noexcept { return *procedures.load(std::memory_order_acquire); }

    // Makes the document ready to run: procedures, signatures, global declarations, context variables, in this order.
    // Throws OTXRuntimeException, "no procedures defined".
    void PrepareRun(const std::shared_ptr<Otx>& document);
    // The value of a declared data type. Throws TypeMismatchException for a name that isn't declared.
    COtxValue GetDatatype(const std::string& name) const;
    // The text of a translation key; the key itself if there is none.
    COtxValue Translate(const COtxValue& key) const;

    // Makes the calling thread a flow. A record that an earlier run of the thread left keeps its number. The flow of a
    // parent that CancelAll has reached meanwhile begins as cancelled.
    void BeginFlow(FlowState state, std::thread::id parent = {});
    // The thread is the calling one.
    void EndFlow(std::thread::id thread);
    // Throws std::out_of_range for a thread that is no flow. Only the flow's own thread may keep the reference.
    OtxFlow& FlowOf(std::thread::id thread);
    // An unknown thread is ignored. A stopped flow isn't woken.
    void SetFlowState(FlowState state, std::thread::id thread);
    // Cancels all flows, closes all screens and all event sources of the run.
    void CancelAll();
    // Ends all screens without a word to the host, whose calls may come until then: before the context is let go of.
    void EndScreens();
    // Whether the calling thread is telling a host of a flow's stop, and so holds the lock of the commands.
    static bool IsTellingOfStop() noexcept { return stopsBeingTold != 0; }
    // The calling thread's flow.
    OtxFlow& OwnFlow() { return ownFlow(std::this_thread::get_id()); }

    // The places where a flow stops, steps, is cancelled or receives an injected exception. The thread is the calling
    // one.
    void NodeCheckpoint(const Node* node, std::thread::id thread) {
        OtxFlow& flow = ownFlow(thread);
        flow.node.store(node, std::memory_order_relaxed);
        check(flow, thread);
    }
    void FlowCheckpoint(std::thread::id thread) { check(ownFlow(thread), thread); }

    // Does a command of run control, by its number. Any thread.
    COtxValue Control(int number, const COtxValue& params);

private:
    class Target;

    void processSignatures(const Signatures& document);
    void addProcedures(const std::shared_ptr<Otx>& document);
    void declareGlobals(const GlobalDeclarations& declarations);
    void ApplyContextVars(const Otx& document);

    // The flow that the calling thread passed a checkpoint with last, by the serial of its context, which is never used
    // again.
    struct Recent {
        std::uint64_t context;
        OtxFlow* flow;
    };
    static constinit thread_local Recent recent __attribute__((tls_model("initial-exec")));

    class Telling;
    static constinit thread_local int stopsBeingTold;

    OtxFlow& ownFlow(std::thread::id thread) {
        return recent.context == serial_ ? *recent.flow : findOwnFlow(thread);
    }
    OtxFlow& findOwnFlow(std::thread::id thread);

    void check(OtxFlow& flow, std::thread::id thread) {
        if (!flow.isCheckpointIdle.load(std::memory_order_relaxed)) [[unlikely]]
            checkClosely(flow, thread);
    }
    void checkClosely(OtxFlow& flow, std::thread::id thread);
    bool standsAtBreakpoint(const OtxFlow& flow) const;
    void StopHere(OtxFlow& flow, std::thread::id thread, std::unique_lock<std::recursive_mutex>& commands);

    // The commands. All under flowLock.
    void stop(const Target& target);
    void wake(const Target& target, FlowState state);
    std::set<std::string> breakpointIds() const;
    void publishBreakpoints(std::set<std::string> ids);
    void setBreakpoints(const COtxValue& params);
    void clearBreakpoints(const COtxValue& params);
    void inject(const Target& target, const COtxValue& params);
    COtxValue status(const Target& target);
    COtxValue flowStatus(OtxFlow& flow, std::thread::id thread);
    // Independent copies of the values of a scope.
    COtxValue published(const OtxVarMap& scope);

    // Gives the first flow as it was when the flows were marked: one that begins later isn't cancelled.
    std::optional<std::thread::id> markCancelled();
    void closeWaitedFor();
    // What the first waiting flow behind that thread waits for.
    std::optional<std::pair<std::thread::id, COtxValue>> nextWaitingFlow(std::thread::id last);
    // The thread of flow 0. Throws std::runtime_error, "Invalid thread id: 0".
    std::thread::id firstFlow() const;
    // Under flowLock.
    std::optional<std::thread::id> findFirstFlow() const;

    const std::uint64_t serial_;

    // Installed by the host before the run.
    std::weak_ptr<velkotx::HostEventSink> host;
    std::shared_ptr<DiagComHost> diagCom;
    std::shared_ptr<FlashHost> flash;
    std::shared_ptr<ComInterfaceHost> comInterface;
    std::shared_ptr<PersistenceHost> persistence;
    std::shared_ptr<HvtFileStore> fileStore;
    std::shared_ptr<ExternalServiceProvider::HostServiceInterface> hostService;
    // Guards the making of serviceProviderFactory.
    std::mutex factoryLock;
    std::unique_ptr<ExternalServiceProvider::ServiceProviderFactory> serviceProviderFactory;
    // The last one is in use. The others have no screens any more, but a call of the host may still be in them.
    std::vector<std::unique_ptr<OTX::HMI>> hmis;
    std::atomic<OTX::HMI*> hmi{nullptr};
    COtxValue contextVariables;
    COtxValue translations;

    OtxVars vars;

    // Guards the document, the making of tables, and signatures.
    mutable std::mutex documentLock;
    std::shared_ptr<Otx> otx;
    std::map<COtxValue, COtxValue> signatures;
    // All tables that were ever published, the last one being the one in use: a run may still read an older one.
    std::vector<std::unique_ptr<const ProcedureTable>> tables;
    std::atomic<const ProcedureTable*> procedures;

    SectionLock mutexGroupLock;
    std::mutex contentLock;

    // Guards flows, breakpoints and nextFlowId, each whole command, and the event of a stopping flow.
    mutable std::recursive_mutex flowLock;
    std::map<std::thread::id, OtxFlow> flows;
    // All sets that were published while there were flows, the last one being the one in use: a checkpoint may still look
    // into an older one. Null for no breakpoints.
    using Breakpoints = std::set<std::string>;
    std::vector<std::unique_ptr<const Breakpoints>> breakpointSets;
    std::atomic<const Breakpoints*> breakpoints{nullptr};
    unsigned nextFlowId = 0;
};

}  // namespace otxns
