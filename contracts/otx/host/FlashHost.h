// The host's store of flash data.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <string>

// Implemented by the host and handed to velkotx::Sequencer::SetFlash. Lanes of a run call it at once; no lock of the
// sequencer is held meanwhile. Failures are COtxExceptions (kinds 26 and 27). The order of the operations is part of the
// contract, reserved places included.
class OTX_API FlashHost {
public:
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    // A List. The direction is "UPLOAD" or "DOWNLOAD"; the audience is the number of a Flash audience, -1 for any.
    virtual COtxValue GetListOfValidFlashSessions(const std::string& direction, int audience) = 0;
    // A value of type FlashSession.
    virtual COtxValue GetFlashSession(COtxValue sessionId) = 0;

    virtual ~FlashHost() = default;
};
