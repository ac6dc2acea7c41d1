// The flash data of a described vehicle.
#include "flash/VehicleFlash.h"

#include "diag/DiagFailure.h"
#include "flash/VehicleFlashSession.h"

#include <otx/value/COtxList.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace velkotx::host {

namespace {

using OTX::Exceptions_e;

FlashDirection directionOf(const std::string& direction) {
    if (direction == "UPLOAD") return FlashDirection::Upload;
    if (direction == "DOWNLOAD") return FlashDirection::Download;
    fail(Exceptions_e::FlashException, "'" + direction + "' is neither UPLOAD nor DOWNLOAD");
}

bool isFor(const FlashSessionDescription& session, int audience) {
    const auto& audiences = session.audiences;
    return audience == -1 || audiences.empty() ||
           std::find(audiences.begin(), audiences.end(), audience) != audiences.end();
}

COtxValue makeSession(const std::shared_ptr<const VehicleDescription>& vehicle,
                      const FlashSessionDescription& session) {
    return COtxValue(std::make_shared<VehicleFlashSession>(
        std::shared_ptr<const FlashSessionDescription>(vehicle, &session)));
}

}  // namespace

VehicleFlash::VehicleFlash(std::shared_ptr<const VehicleDescription> vehicle) : vehicle_(std::move(vehicle)) {}

COtxValue VehicleFlash::GetListOfValidFlashSessions(const std::string& direction, int audience) {
    const FlashDirection wanted = directionOf(direction);
    std::vector<COtxValue> sessions;
    for (const FlashSessionDescription& session : vehicle_->flashSessions) {
        if (session.direction == wanted && isFor(session, audience))
            sessions.push_back(makeSession(vehicle_, session));
    }
    return COtxList(std::move(sessions));
}

COtxValue VehicleFlash::GetFlashSession(COtxValue sessionId) {
    if (sessionId.Type() == OTX::ValueType::FlashSession)
        return sessionId;
    const COtxValue id = sessionId.ToString();
    const auto& sessions = vehicle_->flashSessions;
    const auto found = std::find_if(sessions.begin(), sessions.end(),
                                    [&](const FlashSessionDescription& session) { return session.id == id.String(); });
    if (found == sessions.end())
        fail(Exceptions_e::FlashException, "the vehicle has no flash session '" + id.String() + "'");
    return makeSession(vehicle_, *found);
}

}  // namespace velkotx::host
