// The driver of a run.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/CallArguments.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXHMIIF/HMI.h>
#include <Trace.h>
#include <Unwind.h>
#include <VelkOTXe/Boundary.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <otx/event/COtxEventSource.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <schema/core.h>

#include <deque>
#include <exception>

namespace otxns {

namespace {

std::exception_ptr cancellation() {
    return std::make_exception_ptr(velkotx::OTXRuntimeException("cancelled", ""));
}

// The out parameters, ready for a JSON message.
COtxValue published(const Cells& out) {
    std::map<const std::string, COtxValue> entries;
    for (const auto& [name, cell] : out) {
        const COtxValue value = cell->Value();
        value.SetOTXJSON(true);
        entries.emplace(name->text(), value);
    }
    return COtxMap(entries);
}

// The group of a run on a thread that no group holds, such as another thread than the one which made the Sequencer, or the
// same one after a cancelled run: without it, what lanes wait for could be neither closed nor cancelled.
class GroupOfRun {
public:
    GroupOfRun() : isOwn_(!groups().RootOf(std::this_thread::get_id()) && groups().AddRoot()) {}
    ~GroupOfRun() {
        if (isOwn_) groups().RemoveRoot(std::this_thread::get_id());
    }
    GroupOfRun(const GroupOfRun&) = delete;
    GroupOfRun& operator=(const GroupOfRun&) = delete;

private:
    static HvtUtil::ThreadGroup& groups() { return COtxEventSource::ThreadGroup(); }
    const bool isOwn_;
};

}  // namespace

COtxValue Sequencer_impl::Run(const std::string& procedure, const COtxValue& arguments, bool startStopped) {
    OTX_TRACE(3, "\n<========== Run Sequence " << procedure << " ==========>");
    if (otx == nullptr) throw velkotx::OTXRuntimeException("No sequence loaded", "");
    const GroupOfRun group;
    COtxValue result;
    try {
        context->PrepareRun(otx);
        result = OtxMain(procedure, arguments, startStopped);
    } catch (COtxValue& exception) {
        OTX_TRACE(0, "Uncaught OTX Sequence Exception: " << exception);
        leaveAsSequenceException(exception);
    }
    OTX_TRACE(3, "\n<========== Exit Sequence " << procedure << " ==========>");
    return result;
}

// After a failure the flow and its frames stay: the next run of the thread takes them over.
COtxValue Sequencer_impl::OtxMain(const std::string& procedure, const COtxValue& arguments, bool startStopped) {
    const ProcedureTable::Entry* const entry = context->Procedures().find(procedure);
    if (entry == nullptr) throw velkotx::OTXRuntimeException("procedure " + procedure + " not found", "");
    std::deque<Name> names;
    CallArguments maps;
    for (const auto& [name, value] : OTX::ValMap(arguments))
        maps.in.insert(names.emplace_back(name), InValue(COtxValue(value)));
    COtxValue result;
    std::exception_ptr failure;
    const auto thread = std::this_thread::get_id();
    context->BeginFlow(startStopped ? FlowState::stopping : FlowState::running);
    context->Variables().push(*entry->name);
    try {
        entry->realisation->exec(*context, maps);
        result = published(maps.out);
        OTX_TRACE(3, "sequence finished");
    } catch (velkotx::CancelException&) {
        OTX_TRACE(3, "sequence cancelled");
        failure = cancellation();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        if (context->FlowOf(thread).state == FlowState::cancelled) {
            OTX_TRACE(3, "sequence cancelled");
            failure = cancellation();
        } else {
            OTX_TRACE(3, "sequence finished with unhandled exception");
            failure = std::current_exception();
        }
    }
    if (failure != nullptr) std::rethrow_exception(failure);
    // Fails without a host, also after a sequence that has no screens. This is meant.
    context->HMI().closeAll();
    context->EndFlow(thread);
    return result;
}

}  // namespace otxns
