// The cell of a state variable: it reports every write to the host.
#pragma once

#include <otx/value/OtxVariable.h>

#include <string>

namespace otxns {
class OtxContext;
}

// The declared name stands in the document and the context owns the scopes, so that both outlive the variable.
class OtxStateVariable : public OtxVariable {
public:
    OtxStateVariable(const COtxValue& value, const std::string* declaredName, otxns::OtxContext* run)
        : OtxVariable(value), name(declaredName), context(run) {}

    // Stores the value, then sends "StateVariableChanged" with a copy of it, on the calling thread and under no lock: reports
    // of several threads may come in another order than their writes. Throws OTXRuntimeException, "Host not available.",
    // for a host that has gone, and what the host throws; the variable has the new value all the same.
    void Set(const COtxValue& value) override;

private:
    const std::string* const name;
    otxns::OtxContext* const context;
};
