// Who sees to the screens and dialogs of a run of the program.
#include "program/RunOperator.h"

#include "operator/Conversation.h"
#include "operator/Operator.h"
#include "operator/TerminalInput.h"

#include <unistd.h>

namespace velkotx::host {

std::unique_ptr<RunOperator> RunOperator::atTerminal(Sequencer& sequencer, std::ostream& err) {
    std::unique_ptr<RunOperator> made(new RunOperator(sequencer));
    made->operator_ = std::make_shared<Operator>(
        std::make_unique<Conversation>(made->port_, err), std::make_unique<TerminalInput>(STDIN_FILENO, &err),
        std::make_unique<Unattended>(WithoutOperator::fail, made->port_, err));
    return made;
}

std::unique_ptr<RunOperator> RunOperator::absent(Sequencer& sequencer, WithoutOperator mode, std::ostream& err) {
    std::unique_ptr<RunOperator> made(new RunOperator(sequencer));
    made->operator_ = std::make_shared<Operator>(std::make_unique<Unattended>(mode, made->port_, err),
                                                 std::make_unique<TerminalInput>(-1), nullptr);
    return made;
}

bool RunOperator::isPossible() {
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

}  // namespace velkotx::host
