// Answers the messages of a run, from a thread of its own.
#pragma once

#include "../Transcript.h"
#include "AnswerRule.h"

#include <velkotx/Sequencer.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace documents {

// Every line that an answer causes stands below the message that it answers, so that the transcript doesn't depend on
// which thread is faster. One thread gives all answers, one after the other. Any thread may call it.
class Answerer {
public:
    // `expire` lets the host's object go.
    Answerer(velkotx::Sequencer& sequencer, const std::vector<AnswerRule>& rules, Transcript& transcript,
             std::function<void()> expire);
    Answerer(const Answerer&) = delete;
    Answerer& operator=(const Answerer&) = delete;
    ~Answerer();

    // Answers a message whose line stands at that place: in this call if the rule says so, else soon.
    void answer(const COtxValue& message, Transcript::Place place);

    // An event that answers nothing, on the calling thread.
    void sendEvent(const COtxValue& event);

    // Returns when all answers are given.
    void settle();

    // Nothing is answered any more. To be called before the sequencer goes.
    void end();

private:
    struct Task {
        const std::vector<Reply>* replies;
        Transcript::Place place;
    };

    void work();
    void give(const Task& task);
    void given();
    void give(const Reply& reply);

    velkotx::Sequencer& sequencer_;
    const std::vector<AnswerRule>& rules_;
    Transcript& transcript_;
    const std::function<void()> expire_;
    std::mutex tasksLock_;  // guards all below
    std::condition_variable tasksChanged_;
    std::vector<int> matchCounts_;  // by rule
    std::deque<Task> tasks_;
    int given_ = 0;  // answers that are being given
    bool ended_ = false;
    std::thread thread_;
};

}  // namespace documents
