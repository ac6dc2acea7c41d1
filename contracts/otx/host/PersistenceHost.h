// The host's store of values that outlive a run.
#pragma once

#include <otx/Export.h>

#include <string>

class COtxValue;

// Implemented by the host and handed to velkotx::Sequencer::SetPersistence. Lanes of a run call it at once; no lock of the
// sequencer is held meanwhile. A failure of Load is a COtxException (kind 28), which reaches the sequence as it is; any
// std::exception of Save reaches it as kind 29. The order of the operations is part of the contract, reserved places
// included.
class OTX_API PersistenceHost {
public:
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    // Whether a value is stored under the name, which is then in `value`; without one `value` stays as it is.
    virtual bool Load(const std::string& name, COtxValue& value) = 0;
    // Replaces what is stored under the name. The value is kept by the sequence, which may change it later: copy it.
    virtual void Save(const std::string& name, const COtxValue& value) = 0;

    virtual ~PersistenceHost() = default;
};
