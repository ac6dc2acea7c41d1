// What an operator does to a run.
#include "operator/RunPort.h"

#include "operator/ScreenNews.h"

namespace velkotx::host {

// An event that changes nothing is refused all the same where it has nowhere to go.
bool RunPort::isOpen(const std::string& screen) {
    return sendEvent(outValuesChanged(screen, {})) != "Unknown screen: " + screen;
}

}  // namespace velkotx::host
