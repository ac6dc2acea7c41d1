// Services, their executions and results: what a sequence does with them.
#include "DiagTestVehicle.h"

#include "diag/ServiceResults.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace velkotx::host {
namespace {

using namespace testing;
using OTX::ValueType;

class DiagServices : public ::testing::Test, protected TestHost {
protected:
    void answer(std::vector<FakeAnswer> answers) {
        network->handle([answers](const Pdu&, bool) { return answers; });
    }
};

TEST_F(DiagServices, GiveTheResultOfTheExecutionJustEnded) {
    const COtxValue data = service("ReadData");
    for (int id = 1; id < 5; ++id) {
        setParameter(data, "id", id);
        const COtxValue result = executed(data);
        EXPECT_EQ(result.Result().GetResultState().Int(), COtxResultState::AllPositive);
        EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "id").Int(), id);
    }
}

TEST_F(DiagServices, WaitForADelayedAnswer) {
    answer({{{0x62, 0x00, 0x01, 7}, 30ms}});
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 1);
    const COtxValue result = executed(data);
    EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "value").Int(), 7);
    EXPECT_EQ(result.Result().GetFirstResponse().Response().GetResponseTimestamp().Int(), 30000);
}

TEST_F(DiagServices, TellTheirEvent) {
    const COtxValue vin = service("ReadVin");
    const COtxValue source = vin.DiagService().EventSource();
    vin.DiagService().Execute(false);
    COtxValue event;
    ASSERT_TRUE(source.EventSource().Wait(event));
    EXPECT_EQ(event.Event().Kind(), static_cast<int>(OTX::EventKind::DiagService));
    EXPECT_EQ(event.Event().Value().Type(), ValueType::DiagService);
    EXPECT_TRUE(event.Event().Value() == vin);
    EXPECT_EQ(std::string(event.Event().Value().DiagService().GetDiagServiceName().String()), "ReadVin");
    EXPECT_TRUE(event.Event().Value().DiagService().EventSource() == source);
}

TEST_F(DiagServices, KeepTheEventForWhoAsksLater) {
    const COtxValue vin = service("ReadVin");
    vin.DiagService().Execute(false);
    COtxValue event;
    ASSERT_TRUE(vin.DiagService().EventSource().EventSource().Wait(event));
    EXPECT_TRUE(event.Event().Value() == vin);
}

TEST_F(DiagServices, AreFreedWithEventsThatNobodyRead) {
    std::weak_ptr<COtxValueBehaviour> handle;
    std::weak_ptr<COtxValueBehaviour> source;
    {
        const COtxValue vin = service("ReadVin");
        vin.DiagService().Execute(false);
        handle = vin.GetBehaviourReference();
        source = vin.DiagService().EventSource().GetBehaviourReference();
    }
    EXPECT_TRUE(handle.expired());
    EXPECT_TRUE(source.expired());
}

TEST_F(DiagServices, EventReachesWhoHasOnlyTheSource) {
    network->hold(true);
    answer({{{0x62, 0x00, 0x01, 7}, 30ms}});
    COtxValue source;
    {
        const COtxValue data = service("ReadData");
        setParameter(data, "id", 1);
        source = data.DiagService().EventSource();
        data.DiagService().Execute(false);
    }
    network->hold(false);
    COtxValue event;
    ASSERT_TRUE(source.EventSource().Wait(event));
    const COtxValue result = event.Event().Value().DiagService().GetFirstResult();
    EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "value").Int(), 7);
}

TEST_F(DiagServices, AnEventOfEarlierDoesntGiveAnOldResult) {
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 1);
    // Nobody reads the event of this one.
    data.DiagService().Execute(false);
    network->hold(true);
    answer({{{0x62, 0x00, 0x02, 7}, 30ms}});
    setParameter(data, "id", 2);
    const COtxValue source = data.DiagService().EventSource();
    data.DiagService().Execute(false);
    network->awaitHeld();
    COtxValue event;
    ASSERT_TRUE(source.EventSource().Wait(event));
    std::jthread later([&] { network->hold(false); });
    const COtxValue result = data.DiagService().GetFirstResult();
    EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "id").Int(), 2);
    // And the event of the second is still there.
    ASSERT_TRUE(source.EventSource().Wait(event));
}

// Neither the event of the first, nor its end, is that of the second.
TEST_F(DiagServices, AnExecutionUnderWayDoesntGiveItsResultToTheNext) {
    for (int earlier = 1; earlier < 4; ++earlier) {
        network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
            return {{{0x62, request[1], request[2], 7}, 30ms}};
        });
        network->hold(true);
        const COtxValue data = service("ReadData");
        for (int id = 1; id <= earlier; ++id) {
            setParameter(data, "id", id);
            data.DiagService().Execute(false);
        }
        setParameter(data, "id", 9);
        const COtxValue source = data.DiagService().EventSource();
        data.DiagService().Execute(false);
        network->awaitHeld();
        network->hold(false);
        COtxValue event;
        ASSERT_TRUE(source.EventSource().Wait(event));
        const COtxValue result = data.DiagService().GetFirstResult();
        EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "id").Int(), 9);
        // The others' events are still there for who waits for them.
        for (int left = 0; left < earlier; ++left)
            ASSERT_TRUE(source.EventSource().Wait(event));
    }
}

TEST_F(DiagServices, ARefusedExecutionDoesntWaitForEarlierOnes) {
    network->hold(true);
    answer({{{0x62, 0x00, 0x01, 7}, 30ms}});
    const COtxValue channel = open();
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 1);
    while (data.DiagService().GetAllResults().List().empty())
        data.DiagService().Execute(false);
    const COtxValue result = data.DiagService().GetFirstResult();
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }, &why), 12);
    EXPECT_EQ(why, "too many requests wait for the link to 'Engine'");
    channel.ComChannel().CloseComChannel();
}

TEST_F(DiagServices, AClosedSourceIsReplaced) {
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 3);
    answer({{{0x62, 0x00, 0x03, 7}, 30ms}});
    const COtxValue closed = data.DiagService().EventSource();
    data.DiagService().Execute(false);
    COtxValue event;
    ASSERT_TRUE(closed.EventSource().Wait(event));
    closed.EventSource().Close();
    const COtxValue result = executed(data);
    EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "id").Int(), 3);
    EXPECT_FALSE(data.DiagService().EventSource() == closed);
}

TEST_F(DiagServices, AStoppedCommunicationEndsAnExecution) {
    network->hold(true);
    const COtxValue channel = open();
    answer({{{0x62, 0x00, 0x02, 7}, 30ms}});
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 2);
    data.DiagService().Execute(false);
    network->awaitHeld();
    channel.ComChannel().StopCommunication();
    const COtxValue result = data.DiagService().GetFirstResult();
    EXPECT_EQ(result.Result().GetResultState().Int(), COtxResultState::AllFailed);
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }, &why), 12);
    EXPECT_EQ(why, "the communication with 'Engine' was stopped before a response came");
    EXPECT_EQ(channel.ComChannel().GetComChannelState().Int(), COtxComChannelState::Online);
    network->hold(false);
    channel.ComChannel().StartCommunication();
    EXPECT_EQ(executed(data).Result().GetResultState().Int(), COtxResultState::AllPositive);
}

TEST_F(DiagServices, AnAnnouncedResponseThatNeverComesIsADiagComException) {
    answer({{{0x7F, 0x22, 0x78}}});
    const COtxValue result = executed(service("ReadVin"));
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }, &why), 7);
    EXPECT_EQ(why, "'Engine' announced a response, but none came within 5000 ms");
}

TEST_F(DiagServices, AClosedSourceEndsTheWaitForAResult) {
    network->hold(true);
    answer({{{0x62, 0x00, 0x02, 7}, 30ms}});
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 2);
    const COtxValue source = data.DiagService().EventSource();
    data.DiagService().Execute(false);
    source.EventSource().Close();
    EXPECT_EQ(kindOf([&] { data.DiagService().GetFirstResult(); }), 12);
    network->hold(false);
    // The next one works again.
    const COtxValue result = executed(data);
    EXPECT_EQ(responseParameter(result.Result().GetFirstResponse(), "id").Int(), 2);
}

TEST_F(DiagServices, HaveNoResultAtFirst) {
    const COtxValue vin = service("ReadVin");
    EXPECT_EQ(kindOf([&] { vin.DiagService().GetFirstResult(); }), 12);
    EXPECT_TRUE(vin.DiagService().GetAllResults().List().empty());
    executed(vin);
    EXPECT_EQ(vin.DiagService().GetAllResults().List().size(), 1u);
    EXPECT_EQ(vin.DiagService().GetAllResultsAndClear().List().size(), 1u);
    EXPECT_TRUE(vin.DiagService().GetAllResults().List().empty());
}

TEST_F(DiagServices, AreIncompleteWithoutTheirParameters) {
    const COtxValue data = service("ReadData");
    EXPECT_EQ(kindOf([&] { data.DiagService().Execute(false); }), 11);
    EXPECT_EQ(kindOf([&] { data.DiagService().StartRepeatedExecution(); }), 11);
    EXPECT_TRUE(network->sent().empty());
}

TEST_F(DiagServices, ResultsLeadBackAndAreEqual) {
    const COtxValue vin = service("ReadVin");
    const COtxValue result = executed(vin);
    EXPECT_EQ(result.Type(), ValueType::Result);
    EXPECT_TRUE(result.Result().GetDiagServiceFromResult() == vin);
    EXPECT_TRUE(result == vin.DiagService().GetFirstResult());
    EXPECT_FALSE(result == executed(vin));
    std::map<COtxValue, COtxValue> byService{{vin, COtxInt(1)}};
    EXPECT_EQ(byService.count(result.Result().GetDiagServiceFromResult()), 1u);
    EXPECT_EQ(result.Result().GetAllResponses().List().size(), 1u);
    EXPECT_EQ(std::string(responseParameter(result.Result().GetFirstResponse(), "vin").String()), "WVW");
}

TEST_F(DiagServices, ShowNegativeResponses) {
    answer({{{0x7F, 0x22, 0x31}}});
    const COtxValue result = executed(service("ReadVin"));
    EXPECT_EQ(result.Result().GetResultState().Int(), COtxResultState::AllNegative);
    const COtxValue response = result.Result().GetFirstResponse();
    EXPECT_FALSE(response.Response().IsPositive());
    EXPECT_EQ(std::string(response.Response().GetResponseName().String()), "Negative");
    EXPECT_EQ(responseParameter(response, "code").Int(), 0x31);
}

TEST_F(DiagServices, SilenceIsLossOfCom) {
    answer({});
    const COtxValue result = executed(service("ReadVin"));
    EXPECT_EQ(result.Result().GetResultState().Int(), COtxResultState::AllFailed);
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }, &why), 15);
    EXPECT_EQ(why, "no response from 'Engine' within 80 ms");
    EXPECT_EQ(kindOf([&] { result.Result().GetAllResponses(); }), 15);
}

TEST_F(DiagServices, EndlessPendingIsADiagComException) {
    std::vector<FakeAnswer> answers;
    for (int i = 0; i < 20; ++i)
        answers.push_back({{0x7F, 0x22, 0x78}, i * 2s});
    answer(answers);
    const COtxValue result = executed(service("ReadVin"));
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }, &why), 7);
    EXPECT_EQ(why, "'Engine' announced a response 13 times, but none came within 25000 ms");
}

TEST_F(DiagServices, ABrokenLinkIsLossOfCom) {
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { throw TransportError("the cable is off"); });
    const COtxValue vin = service("ReadVin");
    const COtxValue result = executed(vin);
    std::string why;
    EXPECT_EQ(kindOf([&] { result.Result().GetAllResponses(); }, &why), 15);
    EXPECT_EQ(why, "the link to 'Engine' is down: the cable is off");
    EXPECT_EQ(kindOf([&] { vin.DiagService().Execute(false); }), 15);
}

TEST_F(DiagServices, SuppressPositiveResponses) {
    const COtxValue session = service("StartSession");
    setParameter(session, "session", 3);
    const COtxValue result = executed(session, true);
    EXPECT_EQ(network->sent().back(), (Pdu{0x10, 0x83}));
    EXPECT_EQ(result.Result().GetResultState().Int(), COtxResultState::AllPositive);
    EXPECT_TRUE(result.Result().GetAllResponses().List().empty());
    EXPECT_EQ(kindOf([&] { result.Result().GetFirstResponse(); }), 7);
    // What has no subfunction is sent as it is, and answered.
    EXPECT_EQ(executed(service("ReadVin"), true).Result().GetAllResponses().List().size(), 1u);
}

TEST_F(DiagServices, MixedResponsesShowTheWorst) {
    answer({{{0x62, 0x00, 0x01}, 0ms, "Engine"}, {{0x7F, 0x22, 0x31}, 0ms, "Body"}});
    const COtxValue all = service("ReadAll");
    EXPECT_EQ(executed(all).Result().GetResultState().Int(), COtxResultState::Negative);
    EXPECT_TRUE(network->functional().back());
    const COtxValue responses = executed(all).Result().GetAllResponses();
    EXPECT_EQ(std::string(responses.List().at(1).Response().GetComChannelIdentifier().String()), "Body");
    answer({{{0x62, 0x00, 0x01}, 0ms, "Engine"}, {{0x62, 0x00, 0x01}, 0ms, "Body"}});
    EXPECT_EQ(executed(all).Result().GetResultState().Int(), COtxResultState::AllPositive);
    const COtxValue vin = service("ReadVin");
    answer({{{0x62, 0x00, 0x01}}});
    EXPECT_EQ(executed(vin).Result().GetResultState().Int(), COtxResultState::AllInvalid);
}

TEST_F(DiagServices, SendAPduAsItIs) {
    const COtxValue data = service("ReadData");
    const COtxValue request = data.DiagService().GetRequest();
    EXPECT_EQ(request.Type(), ValueType::Request);
    request.Request().SetPdu(COtxByteField({0x22, 0x12, 0x34}));
    executed(data);
    EXPECT_EQ(network->sent().back(), (Pdu{0x22, 0x12, 0x34}));
}

class DiagRepetition : public DiagServices {
protected:
    // Moves the time by a cycle and reads the event.
    void cycle(const COtxValue& service, Clock::Duration time) {
        network->clock.awaitWaiting(1);
        network->clock.advance(time);
        event(service);
    }
    void event(const COtxValue& service) {
        COtxValue event;
        ASSERT_TRUE(service.DiagService().EventSource().EventSource().Wait(event));
    }
};

TEST_F(DiagRepetition, ExecutesAgainAndAgain) {
    const COtxValue vin = service("ReadVin");
    vin.DiagService().SetRepetitionTime(COtxInt(100));
    EXPECT_EQ(vin.DiagService().GetRepetitionTime().Int(), 100);
    vin.DiagService().StartRepeatedExecution();
    event(vin);
    for (int i = 0; i < 4; ++i)
        cycle(vin, 100ms);
    EXPECT_EQ(vin.DiagService().GetAllResults().List().size(), 5u);
    EXPECT_TRUE(vin.DiagService().GetFirstResult() == vin.DiagService().GetAllResults().List().front());
    EXPECT_EQ(kindOf([&] { vin.DiagService().Execute(false); }), 12);
    EXPECT_EQ(kindOf([&] { vin.DiagService().StartRepeatedExecution(); }), 12);
    vin.DiagService().StopRepeatedExecution();
    vin.DiagService().StopRepeatedExecution();
    executed(vin);
    EXPECT_EQ(vin.DiagService().GetAllResults().List().size(), 1u);
    EXPECT_EQ(network->sent().size(), 6u);
}

TEST_F(DiagRepetition, LeavesOutCyclesThatAreMissed) {
    const COtxValue vin = service("ReadVin");
    vin.DiagService().SetRepetitionTime(COtxInt(100));
    vin.DiagService().StartRepeatedExecution();
    event(vin);
    cycle(vin, 350ms);
    cycle(vin, 50ms);
    EXPECT_EQ(network->sent().size(), 3u);
    vin.DiagService().StopRepeatedExecution();
}

TEST_F(DiagRepetition, KeepsTheNewestResults) {
    const COtxValue vin = service("ReadVin");
    vin.DiagService().SetRepetitionTime(COtxInt(1));
    vin.DiagService().StartRepeatedExecution();
    event(vin);
    const COtxValue first = vin.DiagService().GetFirstResult();
    for (std::size_t i = 0; i < ServiceResults::most; ++i)
        cycle(vin, 1ms);
    vin.DiagService().StopRepeatedExecution();
    EXPECT_EQ(vin.DiagService().GetAllResults().List().size(), ServiceResults::most);
    EXPECT_FALSE(vin.DiagService().GetFirstResult() == first);
}

TEST_F(DiagRepetition, ChangesOfTheRequestCount) {
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 1);
    data.DiagService().StartRepeatedExecution();
    event(data);
    setParameter(data, "id", 2);
    cycle(data, 1s);
    data.DiagService().GetRequest().Request().SetPdu(COtxByteField());
    cycle(data, 1s);
    data.DiagService().StopRepeatedExecution();
    EXPECT_EQ(network->sent(), (std::vector<Pdu>{{0x22, 0x00, 0x01}, {0x22, 0x00, 0x02}}));
    const COtxValue results = data.DiagService().GetAllResults();
    ASSERT_EQ(results.List().size(), 3u);
    EXPECT_EQ(kindOf([&] { results.List().back().Result().GetFirstResponse(); }), 7);
}

TEST_F(DiagRepetition, EndsWithItsChannel) {
    const COtxValue channel = open();
    const COtxValue vin = service("ReadVin");
    vin.DiagService().StartRepeatedExecution();
    event(vin);
    channel.ComChannel().CloseComChannel();
    // Whoever waits for the next one is told.
    event(vin);
    EXPECT_EQ(vin.DiagService().GetAllResults().List().back().Result().GetResultState().Int(), COtxResultState::AllFailed);
    EXPECT_EQ(kindOf([&] { vin.DiagService().StartRepeatedExecution(); }), 12);
}

TEST_F(DiagRepetition, EndsWithItsService) {
    const COtxValue channel = open();
    {
        const COtxValue vin = service("ReadVin");
        vin.DiagService().StartRepeatedExecution();
        event(vin);
        network->clock.awaitWaiting(1);
    }
    network->clock.advance(10s);
    network->clock.awaitWaiting(1);
    EXPECT_EQ(network->sent().size(), 1u);
}

TEST_F(DiagRepetition, TimesAreChecked) {
    const COtxValue vin = service("ReadVin");
    EXPECT_EQ(vin.DiagService().GetRepetitionTime().Int(), 1000);
    vin.DiagService().SetRepetitionTime(COtxFloat(2.5));
    EXPECT_EQ(vin.DiagService().GetRepetitionTime().Float(), 2.5);
    vin.DiagService().SetRepetitionTime(COtxQuantity(20, COtxUnit("ms"), 3));
    vin.DiagService().SetRepetitionTime(COtxQuantity(0.02, COtxUnit("s"), 3));
    EXPECT_EQ(vin.DiagService().GetRepetitionTime().Int(), 20);
    for (const COtxValue& bad : {COtxValue(COtxInt(0)), COtxValue(COtxInt(-5)), COtxValue(COtxFloat(1e300))})
        EXPECT_EQ(kindOf([&] { vin.DiagService().SetRepetitionTime(bad); }), 7);
    EXPECT_EQ(kindOf([&] { vin.DiagService().SetRepetitionTime(COtxList()); }), 5);
    EXPECT_EQ(vin.DiagService().GetRepetitionTime().Int(), 20);
}

TEST_F(DiagServices, ManyLanesUseOneService) {
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        return {{{0x62, request[1], request[2], 1}, request[2] % 7 == 0 ? Clock::Duration(1ms) : Clock::Duration(0)}};
    });
    const COtxValue data = service("ReadData");
    setParameter(data, "id", 0);
    std::atomic<int> results{0};
    {
        std::vector<std::jthread> lanes;
        for (int lane = 0; lane < 4; ++lane)
            lanes.emplace_back([&, lane] {
                for (int i = 0; i < 200; ++i) {
                    setParameter(data, "id", lane * 64 + i % 64);
                    const COtxValue result = executed(data);
                    results += result.Result().GetResultState().Int() == COtxResultState::AllPositive;
                    data.DiagService().GetAllResults();
                }
            });
    }
    EXPECT_EQ(results, 800);
    EXPECT_EQ(network->sent().size(), 800u);
}

TEST_F(DiagServices, ManyLanesUseServicesOfOneChannel) {
    const COtxValue channel = open();
    std::atomic<int> right{0};
    {
        std::vector<std::jthread> lanes;
        for (int lane = 0; lane < 4; ++lane)
            lanes.emplace_back([&, lane] {
                const COtxValue data = service("ReadData");
                for (int i = 0; i < 300; ++i) {
                    setParameter(data, "id", lane * 1000 + i);
                    const COtxValue response = executed(data).Result().GetFirstResponse();
                    right += responseParameter(response, "id").Int() == lane * 1000 + i;
                }
            });
    }
    EXPECT_EQ(right, 1200);
}

TEST(DiagDestruction, OfAllInTheMiddleOfExecutions) {
    for (int round = 0; round < 30; ++round) {
        const auto network = std::make_shared<FakeNetwork>();
        network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
            return {{{0x62, request[1], request[2], 1}, 10ms}};
        });
        network->hold(true);
        auto host = std::make_unique<VehicleDiagCom>(makeVehicle(), std::make_shared<FakeTransport>(network), nullptr);
        COtxValue channel = host->GetComChannel(COtxString("Engine"), COtxString(), COtxBool(false));
        COtxValue data = channel.ComChannel().CreateDiagServiceByName(COtxString("ReadData"));
        setParameter(data, "id", 1);
        COtxValue source = data.DiagService().EventSource();
        data.DiagService().Execute(false);
        network->awaitHeld();
        host.reset();
        if (round % 3 == 0) channel.ComChannel().CloseComChannel();
        channel = COtxValue();
        data = COtxValue();
        if (round % 2 == 0) source = COtxValue();
        network->hold(false);
        COtxValue event;
        if (round % 2 != 0) {
            EXPECT_TRUE(source.EventSource().Wait(event));
        }
    }
}

}  // namespace
}  // namespace velkotx::host
