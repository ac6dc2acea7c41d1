// What no document reaches: classes without behaviour of their own, and a store without frames.
#include "Documents.h"

#include <OTXContext/OtxContext.h>
#include <otx/log/CLog.h>
#include <velkotx/Exceptions.h>

#include <gtest/gtest.h>

namespace tree_tests {

// A node and a loop configuration that the library doesn't know.
class UnknownNode final : public otxns::Node {
public:
    explicit UnknownNode(const otxns::Node& model) : otxns::Node(model) {}
    UnknownNode* _clone(schema::flags, schema::container*) const override { return new UnknownNode(*this); }
};

class UnknownLoop final : public otxns::LoopConfigurationRealisation {
public:
    explicit UnknownLoop(const otxns::LoopConfigurationRealisation& model) : otxns::LoopConfigurationRealisation(model) {}
    UnknownLoop* _clone(schema::flags, schema::container*) const override { return new UnknownLoop(*this); }
};

namespace {

const std::string loop = R"(<loop id="l"><realisation>
    <configuration id="c"><realisation xsi:type="WhileLoop"><test xsi:type="BooleanLiteral" value="false"/></realisation>
    </configuration><flow/></realisation></loop>)";

// The failure as "WHAT|TEXT", behind the trace lines of level 0 that it leaves.
template <class Work>
std::string failureOf(Work work) {
    std::string told;
    Hvt::CLog::SetSink([&](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string& line) {
        told += line.substr(line.rfind(":exec:") + 6) + "; ";
    });
    Hvt::CLog::SetReportingLevel(3, 0);
    try {
        work();
        told += "no failure";
    } catch (const velkotx::OTXRuntimeException& failure) {
        told += std::string(failure.what()) + "|" + failure.text();
    }
    Hvt::CLog::SetReportingLevel(3, -1);
    Hvt::CLog::SetSink({});
    return told;
}

TEST(WithoutBehaviour, ANodeFailsWhenItIsReached) {
    const auto model = load(document(loop));
    const UnknownNode node(flowOf(*model).blockBegin().front());
    otxns::OtxContext context;
    EXPECT_EQ(failureOf([&] { node.exec(context); }),
              "Unimplemented Node: class tree_tests::UnknownNode; "
              "InternalError: |Unimplemented Node: class tree_tests::UnknownNode");
    EXPECT_EQ(node.type(), "class tree_tests::UnknownNode");
}

TEST(WithoutBehaviour, ALoopConfigurationFailsWhenItIsReached) {
    const auto model = load(document(loop));
    const auto& node = dynamic_cast<const otxns::Loop&>(flowOf(*model).blockBegin().front());
    const UnknownLoop configuration(node.realisation()->configuration().realisation().get());
    otxns::OtxContext context;
    EXPECT_EQ(failureOf([&] { configuration.exec(context, flowOf(*model), {}); }),
              "Unimplemented LoopConfigurationRealisation: class tree_tests::UnknownLoop; "
              "InternalError|Unimplemented LoopConfigurationRealisation: class tree_tests::UnknownLoop");
    EXPECT_EQ(configuration.type(), "class tree_tests::UnknownLoop");
}

TEST(WithoutFrames, NothingCanBeDeclaredOrUnwound) {
    const auto model = load(document("", R"(<declarations><variable id="v" name="v"><realisation>
        <dataType xsi:type="Integer"/></realisation></variable></declarations>)"));
    const auto& variable = model->procedures()->procedure().front().realisation()->declarations()->variable().front();
    otxns::OtxContext context;
    EXPECT_EQ(failureOf([&] { variable.declare(context, false); }), "InternalError|Invalid stack pointer");
    context.Variables().newStack();
    EXPECT_EQ(failureOf([&] { variable.declare(context, false); }), "InternalError|Invalid stack pointer");
    EXPECT_EQ(failureOf([&] { context.Variables().Unwind(1); }), "InternalError|Invalid stack pointer");
    EXPECT_EQ(failureOf([&] { context.Variables().Unwind(0); }), "no failure");
    EXPECT_EQ(failureOf([&] { variable.declare(context, true); }), "no failure");
    context.Variables().deleteStack();
}

}  // namespace
}  // namespace tree_tests
