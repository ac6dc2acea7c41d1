// Who sees to the screens and dialogs of a run of the program.
#pragma once

#include "operator/SequencerPort.h"
#include "operator/Unattended.h"

#include <iosfwd>
#include <memory>

namespace velkotx::host {

class Operator;

// Lives as long as the run does, at least, and not longer than the Sequencer and the stream of standard error.
class RunOperator {
public:
    // Prompts on standard error and answers from standard input.
    static std::unique_ptr<RunOperator> atTerminal(Sequencer& sequencer, std::ostream& err);
    static std::unique_ptr<RunOperator> absent(Sequencer& sequencer, WithoutOperator mode, std::ostream& err);

    // Whether prompts would reach a person, and the answers the program.
    static bool isPossible();

    const std::shared_ptr<Operator>& sink() const { return operator_; }

private:
    explicit RunOperator(Sequencer& sequencer) : port_(sequencer) {}

    SequencerPort port_;
    std::shared_ptr<Operator> operator_;
};

}  // namespace velkotx::host
