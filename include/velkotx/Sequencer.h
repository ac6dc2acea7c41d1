// The exported interface: one Sequencer runs the procedures of one OTX document (ISO 13209).
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>
#include <velkotx/Exceptions.h>
#include <velkotx/HostEventSink.h>

#include <iosfwd>
#include <memory>
#include <string>

class DiagComHost;
class FlashHost;
class PersistenceHost;
class HvtFileStore;
class ComInterfaceHost;

namespace velkotx {

// A loaded document with the state of its runs. Made by CreateSequencer, owned by the host through the shared pointer.
//
// Threads: install the host's objects before Run, from one thread. Run works on the calling thread until the sequence is
// over; Control and SendEvent may be called from any other thread meanwhile. Destroy the Sequencer when no call is in
// progress, on the thread that created it: the thread that destroys it is the one that leaves the group of runs.
class OTX_API Sequencer {
public:
    virtual ~Sequencer();

    // Writes the document in the compiled form. Throws std::runtime_error, "VelkOTX CDR Saving Exception: " and the cause.
    virtual void Save(std::ostream& out) = 0;

    // Installs the callback object, held weakly. Required before Run: a run that ends well without it throws
    // OTXRuntimeException, "HMI not initialised".
    virtual void SetHost(std::weak_ptr<HostEventSink> host) = 0;

    // Install the host's objects; each is needed only when a sequence reaches for it, which otherwise ends the run with
    // OTXRuntimeException, "DiagCom not initialised" and the like.
    virtual void SetDiagCom(std::shared_ptr<DiagComHost> diagCom) = 0;
    virtual void SetFlash(std::shared_ptr<FlashHost> flash) = 0;
    virtual void SetPersistence(std::shared_ptr<PersistenceHost> persistence) = 0;
    virtual void SetFileStore(std::shared_ptr<HvtFileStore> fileStore) = 0;
    virtual void SetComInterface(std::shared_ptr<ComInterfaceHost> comInterface) = 0;

    // The values of context variables (ISO 13209-2), a map with string keys. A value that is no map is ignored.
    virtual void SetContextVariables(const COtxValue& variables) = 0;

    // The texts of translation keys, a map with string keys.
    virtual void SetTranslations(const COtxValue& translations) = 0;

    // Runs a procedure of the document with its in-arguments (a map with string keys) and gives the map of its out
    // parameters. With startStopped the run stops at its first node until Control resumes it. Globals keep their values
    // from one Run to the next. Throws
    //   OTXSequenceException  for an OTX exception that the sequence didn't catch,
    //   OTXRuntimeException   for a failure of the machinery; what() is "cancelled" for a cancelled run,
    //   other exceptions of the host's objects and of misplaced Break and Continue nodes as they are.
    virtual COtxValue Run(const std::string& procedure, const COtxValue& arguments, bool startStopped) = 0;

    // Steers the run: "stop", "run", "step", "setbp", "clearbp", "cancel", "status", "exception", "closees", "putes" with
    // a map of parameters. Throws std::runtime_error, "Invalid sequence control command: " and the word, and the
    // command's own failures.
    virtual COtxValue Control(const std::string& command, const COtxValue& parameters) = 0;

    // Hands an event to the run: a map whose "eventType" begins with "HMI-" or "ESP-". Throws std::runtime_error for
    // events that nobody knows, OTXSequenceException for a map without "eventType".
    virtual void SendEvent(const COtxValue& event) = 0;
};

// Reads a document, as XML when its first word is "<?xml", else in the compiled form, and makes its Sequencer. The
// stream is read to its end and not kept. Throws DocumentException, "VelkOTX XML Parsing Exception: " and the cause, or
// std::runtime_error, "VelkOTX CDR Parsing Exception: " and the cause.
OTX_API std::shared_ptr<Sequencer> CreateSequencer(std::istream& document);

// The component's name, version and date. The references stay valid for the life of the process; the strings are only
// to be read.
OTX_API std::string& GetComponentName();
OTX_API std::string& GetComponentVersion();
OTX_API std::string& GetComponentDate();

}  // namespace velkotx
