// Variable cells: writes, event sources, threads.
#include <otx/event/Events.h>

#include <atomic>
#include <thread>

#include "Thrown.h"

namespace {

class ReadOnlyVariable : public OtxVariable {
public:
    using OtxVariable::OtxVariable;
    void Set(const COtxValue&) override { throw COtxException(OTX::Exceptions_e::InvalidReferenceException, "no"); }
};

// Values and names in the order of a source's events.
std::string eventsOf(const COtxValue& source, int count) {
    std::string result;
    for (int number = 0; number < count; ++number) {
        COtxValue event;
        if (!source.EventSource().Wait(event)) return result + "closed";
        result += tests::streamed(event) + ";";
    }
    return result;
}

}  // namespace

TEST(Variable, HoldsItsValue) {
    OtxVariable variable{COtxInt(1)};
    EXPECT_EQ(variable.Get().Int(), 1);
    EXPECT_EQ(variable.Value().Int(), 1);
    variable.Set(COtxInt(2));
    EXPECT_EQ(variable.Get().Int(), 2);
    EXPECT_EQ((variable = COtxInt(3)).Int(), 3);
    variable.Store(COtxInt(4));
    EXPECT_EQ(variable.Value().Int(), 4);
    COtxValue given = COtxInt(5);
    variable.Store(std::move(given));
    EXPECT_EQ(variable.Value().Int(), 5);
}

TEST(Variable, SharesTheValueItIsGiven) {
    const COtxValue list = COtxList();
    OtxVariable variable(list);
    variable.Value().List().push_back(COtxInt(1));
    EXPECT_EQ(list.List().size(), 1u);
}

TEST(Variable, EveryWriteGoesThroughTheVirtualSet) {
    ReadOnlyVariable variable{COtxInt(1)};
    OtxVariable& base = variable;
    EXPECT_EQ(OTX_THROWN_KIND(base.Set(COtxInt(2))), 1);
    EXPECT_EQ(OTX_THROWN_KIND(base = COtxInt(2)), 1);
    EXPECT_EQ(OTX_THROWN_KIND(base.Store(COtxInt(2))), 1);
    EXPECT_EQ(base.Get().Int(), 1);
}

TEST(Variable, WritesReachEveryAttachedSource) {
    OtxVariable variable{COtxInt(0)};
    const COtxMonitorChangeEventSource first;
    const COtxMonitorChangeEventSource second;
    variable.AddEventSource("speed", first);
    variable.AddEventSource("alias", second);
    variable.Set(COtxInt(1));
    variable = COtxInt(2);
    variable.Store(COtxInt(3));
    EXPECT_EQ(eventsOf(first, 3), "MonitorChange(speed, 1);MonitorChange(speed, 2);MonitorChange(speed, 3);");
    EXPECT_EQ(eventsOf(second, 3), "MonitorChange(alias, 1);MonitorChange(alias, 2);MonitorChange(alias, 3);");
}

TEST(Variable, CountingChangesNoValueThatAnyoneHolds) {
    OtxVariable variable{COtxInt(1)};
    variable.StoreInteger(2);
    const COtxValue held = variable.Value();
    variable.StoreInteger(3);
    variable.StoreInteger(4);
    EXPECT_EQ(held.Int(), 2);
    EXPECT_EQ(variable.Value().Int(), 4);
    const auto* const behaviour = variable.Get().GetBehaviourReference().get();
    variable.StoreInteger(5);
    EXPECT_EQ(variable.Value().Int(), 5);
    EXPECT_EQ(variable.Get().GetBehaviourReference().get(), behaviour);
}

TEST(Variable, AStoredIntegerIsLikeANewOne) {
    OtxVariable variable{COtxInt(1, COtxInt::Hexadecimal)};
    variable.StoreInteger(2);
    EXPECT_EQ(dynamic_cast<const COtxIntBehaviour&>(*variable.Value().GetBehaviourReference()).Radix(), COtxInt::Decimal);
    variable.Value().SetOTXJSON(true);
    variable.StoreInteger(3);
    EXPECT_FALSE(variable.Value().GetBehaviourReference()->OtxJSON());
    variable.Set(COtxString("text"));
    variable.StoreInteger(4);
    EXPECT_EQ(variable.Value().Int(), 4);
}

TEST(Variable, AStoredIntegerIsSeenAsAWrite) {
    ReadOnlyVariable refusing{COtxInt(1)};
    OtxVariable& base = refusing;
    EXPECT_EQ(OTX_THROWN_KIND(base.StoreInteger(2)), 1);
    EXPECT_EQ(base.Get().Int(), 1);
    OtxVariable variable{COtxInt(0)};
    const COtxMonitorChangeEventSource source;
    variable.AddEventSource("n", source);
    variable.StoreInteger(1);
    variable.StoreInteger(2);
    EXPECT_EQ(eventsOf(source, 2), "MonitorChange(n, 1);MonitorChange(n, 2);");
}

TEST(Variable, ReadsIntegersOnly) {
    long long number = 0;
    OtxVariable variable{COtxInt(7)};
    EXPECT_TRUE(variable.ReadInteger(number));
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(variable.ReadSoleInteger(number));
    const COtxValue held = variable.Value();
    EXPECT_TRUE(variable.ReadInteger(number));
    EXPECT_FALSE(variable.ReadSoleInteger(number));
    for (const COtxValue& other : {COtxValue(), COtxValue(COtxFloat(7)), COtxValue(COtxBool(true)), COtxValue(COtxString("7"))}) {
        variable.Set(other);
        EXPECT_FALSE(variable.ReadInteger(number)) << other;
        EXPECT_FALSE(variable.ReadSoleInteger(number)) << other;
    }
}

TEST(Variable, ARetiredCellHoldsNobodysValue) {
    const COtxValue list = COtxList();
    OtxVariable variable(list);
    EXPECT_TRUE(variable.Retire());
    EXPECT_EQ(variable.Value().Type(), OTX::ValueType::Empty);
    EXPECT_EQ(list.GetBehaviourReference().use_count(), 1);
    ReadOnlyVariable refusing{COtxInt(1)};
    EXPECT_FALSE(refusing.Retire());
    const COtxMonitorChangeEventSource source;
    variable.AddEventSource("n", source);
    EXPECT_FALSE(variable.Retire());
}

TEST(Variable, TakesOnlyEventSources) {
    OtxVariable variable{COtxInt(0)};
    EXPECT_EQ(OTX_THROWN_KIND(variable.AddEventSource("n", COtxInt(1))), tests::typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(variable.AddEventSource("n", COtxValue())), tests::typeMismatch);
    variable.Set(COtxInt(1));
}

TEST(Variable, LetsGoOfSourcesThatNobodyCanWaitOn) {
    OtxVariable variable{COtxInt(0)};
    std::weak_ptr<COtxValueBehaviour> forgotten;
    std::weak_ptr<COtxValueBehaviour> closed;
    {
        const COtxMonitorChangeEventSource source;
        variable.AddEventSource("a", source);
        forgotten = source.GetBehaviourReference();
    }
    {
        const COtxMonitorChangeEventSource source;
        variable.AddEventSource("b", source);
        closed = source.GetBehaviourReference();
        source.EventSource().Close();
        variable.AddEventSource("c", COtxMonitorChangeEventSource());
    }
    EXPECT_TRUE(forgotten.expired());
    EXPECT_TRUE(closed.expired());
}

TEST(Variable, AnEventSourceMayWriteTheVariableOfItsEvent) {
    // The delivery holds no lock: a reader of the event can write the variable at once, also on the writer's thread.
    auto variable = std::make_shared<OtxVariable>(COtxInt(0));
    const COtxMonitorChangeEventSource source;
    variable->AddEventSource("v", source);
    std::thread reader([&] {
        COtxValue event;
        while (source.EventSource().Wait(event) && event.Event().Value().Int() < 3)
            variable->Set(event.Event().Value() + COtxInt(1));
    });
    variable->Set(COtxInt(1));
    reader.join();
    EXPECT_EQ(variable->Value().Int(), 3);
}

TEST(Variable, BearsReadersAndWritersAtOnce) {
    OtxVariable variable{COtxList(std::vector<COtxValue>{COtxInt(0)})};
    std::atomic<bool> wrong{false};
    constexpr int rounds = 20000;
    const auto write = [&](long long number) {
        for (int round = 0; round < rounds; ++round)
            variable.Store(COtxList(std::vector<COtxValue>(static_cast<std::size_t>(number), COtxInt(number))));
    };
    const auto read = [&] {
        for (int round = 0; round < rounds; ++round) {
            const COtxValue value = variable.Value();
            for (const COtxValue& item : value.List()) {
                const auto size = static_cast<long long>(value.List().size());
                if (item.Int() != size && item.Int() != 0) wrong = true;
            }
        }
    };
    std::thread writers[] = {std::thread(write, 1), std::thread(write, 2)};
    std::thread readers[] = {std::thread(read), std::thread(read)};
    for (auto& thread : writers) thread.join();
    for (auto& thread : readers) thread.join();
    EXPECT_FALSE(wrong);
}

TEST(Variable, AReadValueStaysWhileAnotherThreadCounts) {
    OtxVariable variable{COtxInt(0)};
    std::atomic<bool> wrong{false};
    constexpr long long rounds = 50000;
    std::thread writer([&] {
        for (long long round = 1; round <= rounds; ++round) variable.StoreInteger(round);
    });
    const auto read = [&] {
        long long last = 0;
        while (last < rounds) {
            const COtxValue value = variable.Value();
            const long long number = value.Int();
            long long later = 0;
            if (!variable.ReadInteger(later) || number < last || later < number || value.Int() != number) wrong = true;
            last = later;
        }
    };
    // Nothing but the handle itself orders these reads ahead of a change in place.
    const auto readAndLetGo = [&] {
        for (long long last = 0; last < rounds;) {
            const long long number = variable.Value().Int();
            if (number < last) wrong = true;
            last = number;
        }
    };
    std::thread readers[] = {std::thread(read), std::thread(readAndLetGo)};
    writer.join();
    for (auto& thread : readers) thread.join();
    EXPECT_FALSE(wrong);
}

TEST(Variable, BearsSourcesAttachedDuringWrites) {
    OtxVariable variable{COtxInt(0)};
    std::vector<COtxValue> sources(50);
    std::thread writer([&] {
        for (int round = 0; round < 2000; ++round) variable.Set(COtxInt(round));
    });
    std::thread attacher([&] {
        for (COtxValue& source : sources) {
            source = COtxMonitorChangeEventSource();
            variable.AddEventSource("v", source);
        }
    });
    attacher.join();
    writer.join();
    variable.Set(COtxString("last"));
    for (const COtxValue& source : sources) {
        COtxValue event;
        do {
            ASSERT_TRUE(source.EventSource().Wait(event));
        } while (event.Event().Value().Type() == OTX::ValueType::Integer);
        EXPECT_EQ(event.Event().Value().String(), "last");
    }
}
