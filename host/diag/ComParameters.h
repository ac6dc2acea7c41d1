// The ComParameters of a channel: what a sequence sets, and the times that come of them.
#pragma once

#include "diag/RequestParameters.h"
#include "diag/UdsTiming.h"

#include <vehicle/ControlUnitDescription.h>

#include <otx/value/COtxValue.h>

#include <memory>
#include <vector>

namespace velkotx::host {

// Any thread. Beside those of the description every channel has these (names of ISO 22900-2), the times in microseconds:
//   CP_P2Max                    50000  from the request to the first answer
//   CP_P2Star                 5000000  from a response pending to what follows
//   CP_RC78CompletionTimeout 25000000  from the request to the final answer
//   CP_TesterPresentTime      2000000  between tester presents; 0 for none
//   CP_TesterPresentHandling     true  whether there are tester presents
// The description's default of one of these holds instead. All operations throw kind 8 for a name that isn't there.
class ComParameters {
public:
    // Throws kind 5 or 7 for a default that one of these can't have.
    explicit ComParameters(const std::vector<ComParameterDescription>& described);

    // Throws kind 5 for a complex one, and as the conversion does.
    void set(const COtxValue& name, const COtxValue& value);
    COtxValue value(const COtxValue& name, OTX::ValueType type) const;
    COtxValue defaultValue(const COtxValue& name, OTX::ValueType type) const;

    // Complex ones travel as values of type Parameter, each a copy. They throw kind 5 for what isn't one.
    void setComplex(const COtxValue& parameter);
    COtxValue complex(const COtxValue& name) const;
    COtxValue defaultComplex(const COtxValue& name) const;

    UdsTiming timing() const;

private:
    ParameterPlace find(const COtxValue& name, bool complex) const;
    Clock::Duration time(const char* name) const;

    const std::shared_ptr<const MessageDescription> description_;
    const std::shared_ptr<RequestParameters> values_;
};

}  // namespace velkotx::host
