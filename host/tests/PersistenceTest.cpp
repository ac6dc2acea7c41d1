// What the store keeps: every kind of value that JSON carries, and nothing that it would give back changed.
#include "PersistenceFolder.h"

#include <otx/event/COtxTimerExpiredEventSource.h>
#include <otx/log/CLog.h>
#include <otx/value/IException.h>

#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <vector>

namespace velkotx::host {
namespace {

using namespace testing;

class Persistence : public PersistenceFolder {
protected:
    // The exception of a refused Save.
    std::optional<COtxValue> refused(const COtxValue& value) {
        try {
            store.Save("x", value);
            return std::nullopt;
        } catch (const COtxValue& exception) {
            return exception;
        }
    }
    void expectRefused(const COtxValue& value, const std::string& cause) {
        store.Save("x", COtxString("before"));
        const auto exception = refused(value);
        ASSERT_TRUE(exception);
        EXPECT_EQ(exception->Exception().Kind(), OTX::Exceptions_e::PersistenceSaveException);
        EXPECT_EQ(exception->Exception().Text(), "'x' can't be saved: " + cause);
        EXPECT_EQ(text(loaded(store, "x")), "before");
    }
    // From this store, and from one that is opened later.
    void expectKept(const COtxValue& value) {
        store.Save("x", value);
        SqlitePersistence later(file);
        for (SqlitePersistence* const from : {&store, &later}) {
            const COtxValue back = loaded(*from, "x");
            EXPECT_EQ(back.Type(), value.Type()) << value;
            EXPECT_EQ(back, value);
        }
    }

    SqlitePersistence store{file};
};

TEST_F(Persistence, OfANameThatWasNeverSavedLeavesTheValue) {
    COtxValue value = COtxString("mine");
    EXPECT_FALSE(store.Load("x", value));
    EXPECT_EQ(text(value), "mine");
}

TEST_F(Persistence, KeepsTheLastValueOfEachName) {
    store.Save("x", COtxInt(1));
    store.Save("y", COtxInt(2));
    store.Save("x", COtxInt(3));
    EXPECT_EQ(loaded(store, "x").Int(), 3);
    EXPECT_EQ(loaded(store, "y").Int(), 2);
}

TEST_F(Persistence, KeepsNamesThatDifferInCaseBlanksAndControlCharactersApart) {
    const std::vector<std::string> names{"", " ", "name", "Name", "name ", "näme", "'); DROP TABLE value; --", std::string("na\0me", 5)};
    for (std::size_t number = 0; number < names.size(); ++number)
        store.Save(names[number], COtxInt(static_cast<int>(number)));
    for (std::size_t number = 0; number < names.size(); ++number)
        EXPECT_EQ(loaded(store, names[number]).Int(), static_cast<int>(number)) << names[number];
}

TEST_F(Persistence, KeepsTheEmptyValueAsAValue) {
    store.Save("x", COtxValue());
    COtxValue value = COtxInt(1);
    EXPECT_TRUE(store.Load("x", value));
    EXPECT_EQ(value.Type(), OTX::ValueType::Empty);
}

TEST_F(Persistence, KeepsBooleansAndIntegers) {
    expectKept(COtxBool(true));
    expectKept(COtxBool(false));
    for (const auto number : {std::int64_t{0}, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
        expectKept(COtxInt(number));
}

TEST_F(Persistence, KeepsFloatsToTheLastBit) {
    using limits = std::numeric_limits<double>;
    for (const double number : {0.0, 0.1, 1.0, -1e300, limits::min(), limits::denorm_min(), limits::max(), limits::infinity(), -limits::infinity()}) {
        expectKept(COtxFloat(number));
        EXPECT_EQ(loaded(store, "x").Float(), number);
    }
    expectKept(COtxFloat(limits::quiet_NaN()));
    expectKept(COtxFloat(-0.0));
    EXPECT_TRUE(std::signbit(loaded(store, "x").Float()));
}

TEST_F(Persistence, KeepsTexts) {
    for (const std::string& content : {std::string(), std::string("null"), std::string("a\"b\\c\n\t\x01"), std::string("Grüße \U0001F697"),
                                       std::string("a\0b", 3), std::string(100'000, 'x')})
        expectKept(COtxString(content));
}

TEST_F(Persistence, KeepsByteFields) {
    expectKept(COtxByteField());
    expectKept(COtxByteField("00FF0A", COtxStringEncoding::Hex));
}

TEST_F(Persistence, KeepsQuantitiesAndUnits) {
    expectKept(COtxQuantity(12.5, COtxUnit("V"), 3));
    EXPECT_EQ(loaded(store, "x").Quantity().GetPrecision(), 3);
    expectKept(COtxQuantity(1.0 / 3, COtxUnit("furlong"), 16));
    expectKept(COtxUnit("km/h"));
}

TEST_F(Persistence, KeepsExceptions) {
    expectKept(COtxException("qualifier", "text"));
    expectKept(COtxException(OTX::Exceptions_e::LossOfComException, "gone"));
}

TEST_F(Persistence, KeepsEnumerations) {
    expectKept(COtxStringEncoding(COtxStringEncoding::Utf8));
    expectKept(COtxComChannelState(COtxComChannelState::Online));
    expectKept(COtxEnumerationItem(COtxString("Colour"), COtxString("RED"), COtxInt(3)));
}

TEST_F(Persistence, KeepsListsAndMaps) {
    expectKept(COtxList());
    expectKept(COtxMap());
    const COtxList list(std::vector<COtxValue>{COtxInt(1), COtxValue(), COtxList(std::vector<COtxValue>{COtxFloat(1)}), COtxString("1")});
    expectKept(list);
    EXPECT_EQ(loaded(store, "x").List()[2].List()[0].Type(), OTX::ValueType::Float);
    expectKept(COtxMap(std::map<COtxValue, COtxValue>{{COtxInt(1), list}, {COtxString("1"), COtxBool(true)}, {list, COtxInt(2)}}));
    expectKept(COtxMap(std::map<const std::string, COtxValue>{{"Float", COtxString("NaN")}}));
}

TEST_F(Persistence, LeavesTheSequencesValueInItsForm) {
    const COtxValue field = COtxByteField("0A", COtxStringEncoding::Hex);
    store.Save("x", field);
    EXPECT_EQ(text(field.ToJSON()), "\"0A\"");
}

TEST_F(Persistence, GivesAValueOfItsOwn) {
    const COtxList list(std::vector<COtxValue>{COtxInt(1)});
    store.Save("x", list);
    list.List().push_back(COtxInt(2));
    const COtxValue first = loaded(store, "x");
    EXPECT_EQ(first.List().size(), 1U);
    first.List().clear();
    EXPECT_EQ(loaded(store, "x").List().size(), 1U);
}

TEST_F(Persistence, RefusesHandles) {
    const COtxValue source = COtxTimerExpiredEventSource(COtxInt(1));
    expectRefused(source, "A value of type EventSource that JSON doesn't carry can't be stored");
    expectRefused(COtxList(std::vector<COtxValue>{COtxInt(1), source}), "A value of type List that JSON doesn't carry can't be stored");
}

TEST_F(Persistence, RefusesTextsThatAreNoUtf8) {
    expectRefused(COtxString("\xFF"), "A value of type String that JSON doesn't carry can't be stored");
    expectRefused(COtxMap(std::map<const std::string, COtxValue>{{"\xC3", COtxInt(1)}}), "A value of type Map that JSON doesn't carry can't be stored");
}

TEST_F(Persistence, RefusesAListThatContainsItself) {
    const COtxValue list = COtxList();
    list.List().push_back(list);
    expectRefused(list, "Value is nested too deeply or contains itself");
    list.List().clear();
}

TEST_F(Persistence, RefusesWhatIsNestedTooDeeplyToBeRead) {
    constexpr int deepest = 9'999;
    COtxValue nested = COtxInt(1);
    for (int depth = 0; depth < deepest; ++depth)
        nested = COtxList(std::vector<COtxValue>{nested});
    store.Save("x", nested);
    EXPECT_TRUE(refused(COtxList(std::vector<COtxValue>{nested})));
    EXPECT_EQ(loaded(store, "x"), nested);
}

TEST_F(Persistence, TellsTheCauseInTheTraceSinceASequenceDoesNotSeeIt) {
    constexpr Hvt::TLogSubSys trace = 3;
    std::vector<std::string> lines;
    Hvt::CLog::SetSink([&](Hvt::TLogSubSys, Hvt::TLogLevel level, const std::string& line) {
        EXPECT_EQ(level, 0);
        lines.push_back(line);
    });
    EXPECT_TRUE(refused(COtxString("\xFF")));
    EXPECT_TRUE(lines.empty());
    Hvt::CLog::SetReportingLevel(trace, 0);
    EXPECT_TRUE(refused(COtxString("\xFF")));
    Hvt::CLog::SetReportingLevel(trace, -1);
    Hvt::CLog::SetSink({});
    EXPECT_EQ(lines, std::vector<std::string>{"persistence: 'x' can't be saved: A value of type String that JSON doesn't carry can't be stored"});
}

}  // namespace
}  // namespace velkotx::host
