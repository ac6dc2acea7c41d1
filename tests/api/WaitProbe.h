// An event source of the test that tells when a sequence waits on it.
#pragma once

#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

namespace api {

// Handed to a run as an argument. It stands in front of a source that the first waiting thread makes, which therefore belongs
// to the run, and has the kind of a change.
class WaitProbe : public OTX::IEventSource {
public:
    // The value for the argument; the probe lives as long as it and its copies.
    static COtxValue make();
    static WaitProbe& behind(const COtxValue& value);

    // Returns when so many waits have begun, and what the commands of run control do reaches them.
    void awaitWaits(int count);

    bool Wait(COtxValue& event) override;
    void Changed(const COtxValue&, const COtxValue&) override {}
    void Put(const COtxValue& value) override;
    void Signal() override { Put(COtxValue()); }
    bool Add(const COtxValue&) override { return false; }
    void Close() override;

private:
    COtxValue inner();

    // Guards inner_ and waits_.
    std::mutex probeLock_;
    std::condition_variable waitBegan_;
    COtxValue inner_;
    int waits_ = 0;
};

}  // namespace api
