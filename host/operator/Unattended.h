// Screens and dialogs where no operator is: nothing waits for ever.
#pragma once

#include "operator/Attendant.h"
#include "operator/ScreenView.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace velkotx::host {

class RunPort;

// A modal screen, dialogs included, holds its lane until somebody closes it. Others hold nobody, until the run waits for what
// only an operator could do: close one, or set what it gives out.
enum class WithoutOperator {
    fail,      // a modal screen cancels the run, others when the run waits
    defaults,  // a dialog gets the default that it brings, and it is closed, as modal screens are; others when the run waits,
               // the newest first. A run that waits all the same is cancelled.
};

// Says what it did, for people, on the stream, which outlives it as the port does.
class Unattended : public Attendant {
public:
    Unattended(WithoutOperator mode, RunPort& port, std::ostream& err) : mode_(mode), port_(port), err_(err) {}

    void take(const ScreenNews& news) override;
    bool hasFailed() const override { return hasFailed_; }

private:
    void open(const ScreenNews& opening);
    void fail(const ScreenNews& opening);
    void takeDefault(const ScreenNews& opening);
    void bringOn();
    void failForAll();
    void cancel(const std::string& lines);

    const WithoutOperator mode_;
    RunPort& port_;
    std::ostream& err_;
    bool hasFailed_ = false;
    std::vector<ScreenView> open_;  // that hold nobody, in the order of their opening
    bool hasClosed_ = false;        // one of these
};

}  // namespace velkotx::host
