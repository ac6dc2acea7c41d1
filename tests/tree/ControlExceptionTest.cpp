// What the nodes that leave a flow throw where exceptions are all that gets by.
#include "Documents.h"

#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ControlExceptions.h>

#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <type_traits>

namespace tree_tests {
namespace {

// A Handler takes values only, and a lane takes each std::exception for a failure of the run.
template <class Exception>
constexpr bool isControlOnly = !std::is_base_of_v<COtxValue, Exception> && !std::is_base_of_v<std::exception, Exception>;
static_assert(isControlOnly<velkotx::ReturnException> && isControlOnly<velkotx::CancelException>);
static_assert(isControlOnly<velkotx::LoopException>);
static_assert(std::is_base_of_v<velkotx::LoopException, velkotx::BreakException>);
static_assert(std::is_base_of_v<velkotx::LoopException, velkotx::ContinueException>);

// The end node of the document's flow is executed.
template <class Exception>
Exception thrownBy(const std::string& endNode) {
    const auto model = load(document(endNode));
    otxns::OtxContext context;
    try {
        flowOf(*model).blockEnd()->exec(context);
    } catch (Exception& thrown) {
        return thrown;
    }
    throw std::logic_error("nothing was thrown");
}

TEST(ControlException, OfAReturnHoldsTheNodesId) {
    EXPECT_EQ(thrownBy<velkotx::ReturnException>(R"(<return id="r7"/>)").nodeId(), "r7");
}

TEST(ControlException, OfABreakHoldsTheTarget) {
    EXPECT_EQ(thrownBy<velkotx::BreakException>(R"(<break id="b" target="outer"/>)").target(), "outer");
    EXPECT_EQ(thrownBy<velkotx::BreakException>(R"(<break id="b"/>)").target(), "");
}

TEST(ControlException, OfAContinueHoldsTheTarget) {
    EXPECT_EQ(thrownBy<velkotx::ContinueException>(R"(<continue id="c" target="outer"/>)").target(), "outer");
    EXPECT_EQ(thrownBy<velkotx::ContinueException>(R"(<continue id="c"/>)").target(), "");
}

TEST(ControlException, OfTerminateLanesHoldsNothing) {
    thrownBy<velkotx::CancelException>(R"(<terminateLanes id="t"/>)");
}

}  // namespace
}  // namespace tree_tests
