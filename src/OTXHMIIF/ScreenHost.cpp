// The host as a screen sees it.
#include <OTXCoreTerms/Content.h>
#include <OTXHMIIF/ScreenHost.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <velkotx/HostEventSink.h>

namespace OTX {

bool ScreenHost::send(const char* eventType, Entries entries) const {
    const auto host = host_.lock();
    if (host == nullptr) return false;
    entries.emplace("eventType", COtxString(eventType));
    entries.emplace("screenName", COtxString(screen_));
    host->sendRequest(COtxMap(entries));
    return true;
}

COtxValue ScreenHost::published(const COtxValue& value) const {
    COtxValue shown = value;
    if (otxns::holdsContent(value)) {
        const std::lock_guard content(*contentLock_);
        shown = OTX::DeepCopy(value);
    }
    shown.SetOTXJSON(true);
    return shown;
}

}  // namespace OTX
