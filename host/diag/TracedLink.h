// A link that shows what passes to a trace.
#pragma once

#include "diag/PduTrace.h"

#include <transport/Transport.h>

#include <memory>
#include <string>

namespace velkotx::host {

// As the link that it wraps; a null trace costs nothing.
class TracedLink final : public Link {
public:
    TracedLink(std::unique_ptr<Link> link, const Clock& clock, std::string channel, std::shared_ptr<PduTrace> trace);

    void send(std::span<const std::uint8_t> request, bool functional) override;
    std::optional<ReceivedPdu> receive(Clock::Time until) override;
    void close() override;

private:
    const std::unique_ptr<Link> link_;
    const Clock& clock_;
    const std::string channel_;
    const std::shared_ptr<PduTrace> trace_;
};

}  // namespace velkotx::host
