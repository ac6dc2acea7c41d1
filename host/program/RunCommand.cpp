// velkotx run: a host of one run.
#include "program/Commands.h"

#include "objects/JsonLinesEventSink.h"
#include "objects/SilentEventSink.h"
#include "program/Inputs.h"
#include "program/InterruptWatcher.h"
#include "program/Load.h"
#include "program/Report.h"
#include "program/UsageError.h"
#include "program/Values.h"

#include <otx/log/CLog.h>
#include <velkotx/Sequencer.h>

#include <cerrno>
#include <fstream>
#include <system_error>

namespace velkotx::host {

namespace {

// The numbers of the log library's subsystems.
constexpr Hvt::TLogSubSys sequenceLog = 2;
constexpr Hvt::TLogSubSys trace = 3;

void setLogLevel(int level) {
    Hvt::CLog::SetReportingLevel(sequenceLog, level);
    Hvt::CLog::SetReportingLevel(trace, level);
}

// The file of --messages, if there is one, with the sink that writes it.
class Messages {
public:
    explicit Messages(const std::string& file) {
        if (file.empty()) {
            sink_ = std::make_shared<SilentEventSink>();
            return;
        }
        if (file == "-")
            throw UsageError("--messages: a file is needed, standard output has the outcome");
        errno = 0;
        stream_.open(file, std::ios::binary);
        if (!stream_)
            throw UsageError(file + ": " + std::generic_category().message(errno != 0 ? errno : EIO));
        sink_ = std::make_shared<JsonLinesEventSink>(stream_);
    }

    const std::shared_ptr<HostEventSink>& sink() const { return sink_; }

private:
    std::ofstream stream_;
    std::shared_ptr<HostEventSink> sink_;
};

}  // namespace

int run(const RunOptions& options, const Streams& streams) {
    Inputs inputs(streams.in);
    if (options.logLevel)
        setLogLevel(*options.logLevel);
    const COtxValue arguments = readArguments(inputs, options.argumentsFile, options.arguments);
    const COtxValue context = readObject(inputs, options.contextFile);
    const COtxValue translations = readObject(inputs, options.translationsFile);
    const Messages messages(options.messagesFile);
    const auto loaded = load(inputs, options.document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded))
        return report(*unloadable, options.document, options.json, streams);

    Sequencer& sequencer = *std::get<std::shared_ptr<Sequencer>>(loaded);
    sequencer.SetHost(messages.sink());
    sequencer.SetContextVariables(context);
    sequencer.SetTranslations(translations);
    const Outcome outcome = [&] {
        const InterruptWatcher watcher(sequencer);
        return runProcedure(sequencer, options.procedure, arguments);
    }();
    return report(outcome, options.document, options.json, streams);
}

}  // namespace velkotx::host
