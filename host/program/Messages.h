// The file of --messages.
#pragma once

#include <fstream>
#include <memory>
#include <string>

namespace velkotx {
class HostEventSink;
}

namespace velkotx::host {

// Owns the file, if there is one, and the sink that writes it; without one the messages are dropped.
class Messages {
public:
    // The name is empty where no file is wanted. Throws UsageError for a file that can't be written.
    explicit Messages(const std::string& file);

    const std::shared_ptr<HostEventSink>& sink() const { return sink_; }

private:
    std::ofstream stream_;
    std::shared_ptr<HostEventSink> sink_;
};

}  // namespace velkotx::host
