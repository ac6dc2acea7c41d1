// The thread that tells the host of changes to a screen's in and inout parameters.
#pragma once

#include <OTXHMIIF/ScreenHost.h>
#include <otx/value/COtxValue.h>

#include <thread>

namespace OTX {

// Owned by the screen. It ends when the source is closed, or when the host throws, which is logged; the changes after that
// are lost. It keeps what it needs, so that it may outlive the screen where the host ends the screen from inside a message.
class ChangeEvents {
public:
    // The source of the changes. Throws std::system_error when there is no thread to be had.
    ChangeEvents(const ScreenHost& host, const COtxValue& monitorSource);
    ~ChangeEvents();
    ChangeEvents(const ChangeEvents&) = delete;
    ChangeEvents& operator=(const ChangeEvents&) = delete;

    // Closes the source and waits until the thread has sent what it is sending. Once. Throws std::system_error (resource
    // deadlock) on the thread itself, which ends all the same when it comes back from the host.
    void end();

private:
    const COtxValue monitorSource_;
    std::thread thread_;
};

}  // namespace OTX
