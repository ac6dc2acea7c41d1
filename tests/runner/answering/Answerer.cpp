// Answers the messages of a run, from a thread of its own.
#include "Answerer.h"

#include "Refusal.h"

#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <cxxabi.h>

#include <utility>

namespace documents {

Answerer::Answerer(velkotx::Sequencer& sequencer, const std::vector<AnswerRule>& rules, Transcript& transcript,
                   std::function<void()> expire)
    : sequencer_(sequencer),
      rules_(rules),
      transcript_(transcript),
      expire_(std::move(expire)),
      matchCounts_(rules.size()),
      thread_([this] { work(); }) {}

Answerer::~Answerer() { end(); }

void Answerer::end() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard guard(tasksLock_);
        ended_ = true;
    }
    tasksChanged_.notify_all();
    thread_.join();
}

void Answerer::answer(const COtxValue& message, Transcript::Place place) {
    std::vector<Task> inside;
    std::vector<Task> waiting;
    {
        const std::lock_guard guard(tasksLock_);
        if (ended_) return;
        for (std::size_t index = 0; index < rules_.size(); ++index) {
            const AnswerRule& rule = rules_[index];
            if (!matches(rule.pattern, message)) continue;
            const int match = ++matchCounts_[index];
            if (rule.nth && *rule.nth != match) continue;
            (rule.inside ? inside : waiting).push_back({&rule.replies, place});
        }
        if (inside.empty() && waiting.empty()) return;
        ++given_;
    }
    for (const Task& task : inside) give(task);
    {
        const std::lock_guard guard(tasksLock_);
        tasks_.insert(tasks_.end(), waiting.begin(), waiting.end());
    }
    given();
}

void Answerer::given() {
    {
        const std::lock_guard guard(tasksLock_);
        --given_;
    }
    tasksChanged_.notify_all();
}

void Answerer::settle() {
    std::unique_lock guard(tasksLock_);
    tasksChanged_.wait(guard, [this] { return tasks_.empty() && given_ == 0; });
}

void Answerer::work() {
    std::unique_lock guard(tasksLock_);
    while (true) {
        tasksChanged_.wait(guard, [this] { return ended_ || !tasks_.empty(); });
        if (tasks_.empty()) return;
        const Task task = tasks_.front();
        tasks_.pop_front();
        ++given_;
        guard.unlock();
        give(task);
        given();
        guard.lock();
    }
}

void Answerer::give(const Task& task) {
    const Transcript::Below below(task.place);
    for (const Reply& reply : *task.replies) give(reply);
}

void Answerer::give(const Reply& reply) {
    switch (reply.kind) {
        case Reply::Kind::event: sendEvent(reply.value); break;
        case Reply::Kind::control:
            try {
                sequencer_.Control(reply.command, reply.value);
                transcript_.add("control " + reply.command);
            } catch (abi::__forced_unwind&) {
                throw;
            } catch (...) {
                transcript_.add("control refused: " + refusal());
            }
            break;
        case Reply::Kind::expire:
            expire_();
            transcript_.add("host gone");
            break;
    }
}

void Answerer::sendEvent(const COtxValue& event) {
    // Two copies: the run may change what it was given, and writing one down in the OTX form leaves its mark.
    const COtxValue told = OTX::DeepCopy(event);
    told.SetOTXJSON(true);
    const std::string json = told.ToJSON().String();
    const COtxValue sent = OTX::DeepCopy(event);
    try {
        sequencer_.SendEvent(sent);
        transcript_.add("event " + json);
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        transcript_.add("event refused: " + refusal());
    }
}

}  // namespace documents
