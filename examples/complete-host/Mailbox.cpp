// The messages of a run, kept until somebody takes them.
#include "Mailbox.h"

#include <otx/value/Functions.h>

#include <utility>

void Mailbox::sendRequest(const COtxValue& message) {
    COtxValue copy = OTX::DeepCopy(message);  // the message is only lent
    {
        const std::lock_guard guard(mailLock_);
        mail_.push_back(std::move(copy));
    }
    came_.notify_one();
}

std::optional<COtxValue> Mailbox::take(const std::stop_token& stop) {
    std::unique_lock guard(mailLock_);
    if (!came_.wait(guard, stop, [this] { return !mail_.empty(); })) return std::nullopt;
    COtxValue message = std::move(mail_.front());
    mail_.pop_front();
    return message;
}
