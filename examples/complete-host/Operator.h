// Answers the dialogs of a run, in place of a person.
#pragma once

#include "Mailbox.h"
#include "TestRun.h"

#include <otx/value/COtxConfirmationType.h>

#include <memory>
#include <ostream>
#include <thread>

// Takes the messages on a thread of its own until it is destroyed, which comes before the destruction of the run.
class Operator {
public:
    Operator(TestRun& run, std::shared_ptr<Mailbox> mailbox, COtxConfirmationType::ConfirmationType answer, std::ostream& out);

private:
    void work(const std::stop_token& stop);
    void answer(const COtxValue& message);

    TestRun& run_;
    const std::shared_ptr<Mailbox> mailbox_;
    const COtxConfirmationType::ConfirmationType answer_;
    std::ostream& out_;
    std::jthread thread_;  // last: it uses all the others
};
