// The file of --messages.
#include "program/Messages.h"

#include "objects/JsonLinesEventSink.h"
#include "objects/SilentEventSink.h"
#include "program/UsageError.h"

#include <cerrno>
#include <system_error>

namespace velkotx::host {

Messages::Messages(const std::string& file) {
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

}  // namespace velkotx::host
