// Lanes that end at the same time, each in a way of its own.
#include "../Documents.h"
#include "../FlowTest.h"
#include "../LaneDocuments.h"
#include "../ThreadCount.h"
#include "Stress.h"

#include <set>
#include <string>
#include <vector>

namespace {

using namespace api;
using namespace stress;

enum End : unsigned { fails, terminates, returns, throws, runsOut, ends };

std::string laneOf(unsigned end, const std::string& number) {
    switch (end) {
        case fails: return fail("f" + number);
        case terminates: return terminateLanes("t" + number);
        case returns: return returnNode("r" + number);
        case throws: return throwUser("u" + number, "q", "x");
        default: return doNothing("a" + number);
    }
}

// What the run may answer: a lane that terminates may come before any other has done its node.
std::set<std::string> allowed(const std::set<unsigned>& kinds) {
    std::set<std::string> answers;
    const bool mayBeTerminated = kinds.count(terminates) != 0;
    if (kinds.count(fails) != 0) {
        answers.insert(cancelled);
        if (!mayBeTerminated) return answers;
    }
    if (kinds.count(throws) != 0) {
        answers.insert("exception UserException: x");
        if (!mayBeTerminated) return answers;
    }
    answers.insert("{}");
    return answers;
}

class LaneEndStress : public FlowTest {
protected:
    void endAtOnce(const std::vector<unsigned>& lanes) {
        Texts texts;
        std::string names;
        for (const unsigned end : lanes) {
            texts.push_back(laneOf(end, std::to_string(texts.size())));
            names += texts.back().substr(0, texts.back().find('>')) + ' ';
        }
        begin(procedure("main", call("c1", "sub") + set("a1", "y", 1)) +
              procedure("sub", parallel("n1", texts) + set("a2", "x", 1)));
        start();
        const std::string answer = outcome();
        const std::set<unsigned> kinds(lanes.begin(), lanes.end());
        EXPECT_EQ(allowed(kinds).count(answer), 1U) << names << ": " << answer;
        const bool finished = answer == "{}";
        EXPECT_EQ(global("y"), finished ? 1 : 0) << names;
        if (finished && kinds.count(returns) == 0) {
            EXPECT_EQ(global("x"), 1) << names;
        }
        if (kinds.count(returns) != 0 && kinds.count(terminates) == 0) {
            EXPECT_EQ(global("x"), 0) << names;
        }
        EXPECT_EQ(flows(), finished ? std::vector<int>{} : std::vector<int>{0}) << names;
        session.reset();
    }
};

TEST_F(LaneEndStress, InEveryCombination) {
    const std::size_t threads = threadCount();
    for (int round = 0; round < factor(); ++round) {
        for (unsigned first = 0; first < ends; ++first)
            for (unsigned second = 0; second < ends; ++second) {
                endAtOnce({first, second});
                for (unsigned third = 0; third < ends; ++third) endAtOnce({first, second, third});
            }
        ASSERT_FALSE(HasFailure());
        ASSERT_TRUE(isThreadCountReached(threads));
    }
}

TEST_F(LaneEndStress, AllFailing) {
    for (int round = 0; round < 50 * factor(); ++round) endAtOnce({fails, fails, fails, fails, fails, fails});
}

}  // namespace
