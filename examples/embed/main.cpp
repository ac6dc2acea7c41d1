// The smallest host: runs the battery check with three voltages and prints its out parameters.
#include <otx/value/Values.h>
#include <velkotx/LoopExceptions.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <fstream>
#include <iostream>

// Every message of a run to its host comes here; this host takes no interest in them.
class Sink : public velkotx::HostEventSink {
    void sendRequest(const COtxValue&) override {}
};

int main(int argc, char** argv) try {
    std::ifstream document(argc > 1 ? argv[1] : "");
    const auto sequencer = velkotx::CreateSequencer(document);
    const auto sink = std::make_shared<Sink>();  // the Sequencer holds it weakly
    sequencer->SetHost(sink);

    const COtxValue voltages = COtxList({COtxFloat(3.71), COtxFloat(3.42), COtxFloat(3.7)});
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"voltages", voltages}});
    const COtxValue results = sequencer->Run("main", arguments, false);
    for (const auto& [name, value] : results.Map())
        std::cout << name << " = " << value << '\n';
    return 0;
} catch (const velkotx::BoundaryException& failure) {
    std::cerr << failure.what() << ": " << failure.text() << '\n';
    return 1;
} catch (const velkotx::LoopException& end) {  // a Break or Continue of a faulty document; no std::exception
    std::cerr << "no loop takes a Break or Continue, target '" << end.target() << "'\n";
    return 1;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
} catch (abi::__forced_unwind&) {  // the thread is cancelled
    throw;
} catch (...) {  // whatever a host object throws
    std::cerr << "unknown exception\n";
    return 2;
}
