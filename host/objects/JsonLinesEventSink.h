// An event sink that writes every message as one line of JSON.
#pragma once

#include <velkotx/HostEventSink.h>

#include <iosfwd>
#include <mutex>

namespace velkotx::host {

// Writes to a stream that it doesn't own and that outlives it. Each line is flushed, so that whoever reads it sees a
// message as soon as the run goes on. Any number of threads may send; lines don't mix.
class JsonLinesEventSink : public HostEventSink {
public:
    explicit JsonLinesEventSink(std::ostream& out);

    // Throws std::runtime_error when the stream doesn't take the line, which fails the statement that sent the message.
    void sendRequest(const COtxValue& message) override;

private:
    std::mutex outLock_;
    std::ostream& out_;  // guarded by outLock_
};

}  // namespace velkotx::host
