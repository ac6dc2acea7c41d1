// Screens and dialogs where no operator is: nothing waits for ever.
#pragma once

#include "operator/Attendant.h"

#include <iosfwd>

namespace velkotx::host {

class RunPort;

// A modal screen, dialogs included, holds its lane until somebody closes it. Others hold nobody.
enum class WithoutOperator {
    fail,      // a modal screen cancels the run; others stay open
    defaults,  // a dialog gets the default that it brings; then, as all screens, it is closed
};

// Says what it did, for people, on the stream, which outlives it as the port does.
class Unattended : public Attendant {
public:
    Unattended(WithoutOperator mode, RunPort& port, std::ostream& err) : mode_(mode), port_(port), err_(err) {}

    void take(const ScreenNews& news) override;
    bool hasFailed() const override { return hasFailed_; }

private:
    void fail(const ScreenNews& opening);
    void takeDefault(const ScreenNews& opening);

    const WithoutOperator mode_;
    RunPort& port_;
    std::ostream& err_;
    bool hasFailed_ = false;
};

}  // namespace velkotx::host
