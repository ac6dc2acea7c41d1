// The context from inside: flows, the numbers of the commands, the host's objects that are missing.
#include <OTXContext/OtxContext.h>

#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/IException.h>
#include <otx/value/IString.h>
#include <velkotx/Exceptions.h>
#include <velkotx/HostEventSink.h>

#include <gtest/gtest.h>

#include "Documents.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using otxns::FlowState;
using otxns::OtxContext;

struct SilentHost : velkotx::HostEventSink {
    void sendRequest(const COtxValue&) override {}
};

// What a call throws: the two texts of a failure of the machinery, or the words of any other.
template <class Work>
std::string failure(Work work) {
    try {
        work();
        return {};
    } catch (const velkotx::OTXRuntimeException& thrown) {
        return std::string("machinery: ") + thrown.what() + '|' + thrown.text();
    } catch (const COtxValue& thrown) {
        return std::to_string(static_cast<int>(thrown.Exception().Kind())) + ' ' + thrown.Exception().Text();
    } catch (const std::exception& thrown) {
        return thrown.what();
    }
}

std::string json(const COtxValue& value) { return value.ToJSON().String(); }

class Context : public testing::Test {
protected:
    const std::thread::id self = std::this_thread::get_id();
    OtxContext context;
};

TEST_F(Context, MissesEachObjectOfTheHostByItsName) {
    EXPECT_EQ(failure([&] { context.HMI(); }), "machinery: HMI not initialised|");
    EXPECT_EQ(failure([&] { context.DiagCom(); }), "machinery: DiagCom not initialised|");
    EXPECT_EQ(failure([&] { context.Flash(); }), "machinery: Flash not initialised|");
    EXPECT_EQ(failure([&] { context.ComInterface(); }), "machinery: ComInterface not initialised|");
    EXPECT_EQ(failure([&] { context.Persistence(); }), "machinery: Persistence not initialised|");
    EXPECT_EQ(failure([&] { context.FileStore(); }), "machinery: File store not initialised|");
    EXPECT_EQ(failure([&] { context.HostService(); }), "machinery: Host Service interface not initialised|");
    EXPECT_EQ(failure([&] { context.Host(); }), "machinery: Host not available.|");
}

TEST_F(Context, BuildsTheScreensAndTheServicesOnAHostAndHoldsItWeakly) {
    auto host = std::make_shared<SilentHost>();
    context.SetHost(host);
    EXPECT_EQ(context.Host(), host);
    EXPECT_EQ(failure([&] { context.HMI(); }), "");
    const auto services = context.HostService();
    EXPECT_NE(services, nullptr);
    const auto* const screens = &context.HMI();
    context.SetHost(host);
    EXPECT_NE(context.HostService(), services);
    EXPECT_NE(&context.HMI(), screens);
    const std::weak_ptr<SilentHost> watched = host;
    host.reset();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(failure([&] { context.Host(); }), "machinery: Host not available.|");
    EXPECT_EQ(failure([&] { context.HMI(); }), "");
}

TEST_F(Context, KeepsTheFactoryOfProviders) {
    EXPECT_EQ(&context.ServiceProviderFactory(), &context.ServiceProviderFactory());
}

TEST_F(Context, KnowsNoFlowButThatOfItsThread) {
    EXPECT_EQ(failure([&] { context.FlowOf(self); }), "invalid map<K, T> key");
    EXPECT_THROW(context.FlowOf(self), std::out_of_range);
    context.BeginFlow(FlowState::running);
    EXPECT_EQ(context.FlowOf(self).flowId, 0U);
    context.EndFlow(self);
    EXPECT_THROW(context.FlowOf(self), std::out_of_range);
    context.SetFlowState(FlowState::cancelled, self);
    EXPECT_THROW(context.FlowOf(self), std::out_of_range);
}

TEST_F(Context, GivesEachBeginningANumberAlsoWhereTheRecordStays) {
    context.BeginFlow(FlowState::running);
    context.SetFlowState(FlowState::cancelled, self);
    context.BeginFlow(FlowState::stopping);
    EXPECT_EQ(context.FlowOf(self).flowId, 0U);
    EXPECT_EQ(context.FlowOf(self).state, FlowState::stopping);
    std::thread([&] {
        context.BeginFlow(FlowState::running);
        EXPECT_EQ(context.OwnFlow().flowId, 2U);
        EXPECT_EQ(context.OwnFlow().node, nullptr);
        EXPECT_EQ(context.OwnFlow().stopped, 0);
        context.EndFlow(std::this_thread::get_id());
    }).join();
    context.EndFlow(self);
}

TEST_F(Context, TakesTheNumberWithoutAWordForAStatusAndHigherOnesForRun) {
    EXPECT_EQ(json(context.Control(7, COtxValue())), json(context.Control(6, COtxValue())));
    EXPECT_EQ(failure([&] { context.Control(1, COtxValue()); }), "No threads stopped");
    EXPECT_EQ(failure([&] { context.Control(11, COtxValue()); }), "No threads stopped");
    context.BeginFlow(FlowState::stopping);
    EXPECT_EQ(failure([&] { context.Control(11, COtxMap(std::map<const std::string, COtxValue>{{"flowId", COtxInt(0)}})); }),
              "thread 0 running");
    EXPECT_EQ(context.FlowOf(self).state, FlowState::running);
    context.EndFlow(self);
}

TEST_F(Context, AnswersCommandsWithAnEmptyString) {
    const COtxValue answer = context.Control(4, COtxValue());
    EXPECT_EQ(answer.Type(), OTX::ValueType::String);
    EXPECT_TRUE(answer.String().empty());
}

TEST_F(Context, KeepsTheHostsValuesInCellsThatRefuseWrites) {
    const std::shared_ptr<otxns::Otx> document = tree_tests::load(tree_tests::document(""));
    context.SetContextVariables(COtxMap(std::map<const std::string, COtxValue>{{"k", COtxInt(1)}}));
    context.PrepareRun(document);
    const auto cell = context.Variables().ContextVars().Find("k");
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(failure([&] { cell->Set(COtxInt(2)); }), "1 Cannot set a context variable");
    context.SetContextVariables(COtxMap(std::map<const std::string, COtxValue>{{"k", COtxInt(3)}}));
    context.PrepareRun(document);
    EXPECT_EQ(context.Variables().ContextVars().Find("k"), cell);
    EXPECT_EQ(cell->Get().Int(), 1);
}

TEST_F(Context, TranslatesKeysThatTheMapHolds) {
    EXPECT_EQ(json(context.Translate(COtxString("k"))), R"("k")");
    context.SetTranslations(COtxMap(std::map<const std::string, COtxValue>{{"k", COtxString("text")}}));
    EXPECT_EQ(json(context.Translate(COtxString("k"))), R"("text")");
    EXPECT_EQ(json(context.Translate(COtxString("K"))), R"("K")");
    EXPECT_EQ(json(context.Translate(COtxInt(3))), "3");
    context.SetTranslations(COtxString("k"));
    EXPECT_EQ(json(context.Translate(COtxString("k"))), R"("k")");
}

TEST_F(Context, KnowsNoDataTypeThatIsNotDeclared) {
    EXPECT_EQ(failure([&] { context.GetDatatype("T"); }), "5 Datatype T not declared");
}

}  // namespace
