// Quantities and units of a host's own make.
#include <memory>

#include "Quantities.h"

using namespace tests;

namespace {

class HostUnit final : public COtxValueBehaviour, public OTX::IUnit {
public:
    explicit HostUnit(std::string name) : COtxValueBehaviour(OTX::ValueType::Unit), name_(std::move(name)) {}
    const OTX::IUnit& IUnit() const override { return *this; }
    const std::string& Name() const override { return name_; }

private:
    const std::string name_;
};

class HostQuantity final : public COtxValueBehaviour, public OTX::IQuantity {
public:
    HostQuantity(COtxValue value, COtxValue unit)
        : COtxValueBehaviour(OTX::ValueType::Quantity), value_(std::move(value)), unit_(std::move(unit)) {}
    OTX::IQuantity& Quantity() override { return *this; }
    COtxValue GetDisplayValue() const override { return value_; }
    COtxValue GetDisplayUnit() const override { return unit_; }
    int GetPrecision() const override { return 4; }
    COtxValue GetBaseUnit() const override { return unit_; }
    COtxValue Localize() const override { return value_; }
    COtxValue Localize(const std::string&) const override { return value_; }

private:
    const COtxValue value_;
    const COtxValue unit_;
};

// Has the type and nothing else.
class Hollow final : public COtxValueBehaviour {
public:
    explicit Hollow(OTX::ValueType type) : COtxValueBehaviour(type) {}
};

COtxValue hostUnit(const char* name) { return COtxValue(std::make_shared<HostUnit>(name)); }
COtxValue hostQuantity(long long number, const char* unit) {
    return COtxValue(std::make_shared<HostQuantity>(COtxInt(number), COtxUnit(unit)));
}

}  // namespace

TEST(HostQuantity, UnitsConvertByTheirNames) {
    const COtxQuantity quantity(72.0, hostUnit("km/h"), 16);
    EXPECT_EQ(number(COtxQuantity(quantity, hostUnit("m/s"), 16)), 20.0);
    EXPECT_TRUE(quantity == COtxQuantity(20.0, COtxUnit("m/s"), 16));
    EXPECT_EQ(unitOf(quantity.Quantity().GetBaseUnit()), "m/s");
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(quantity, hostUnit("widget"), 16)), unknownUnit);
}

TEST(HostQuantity, TakesPartInArithmeticOnTheRight) {
    EXPECT_EQ(shown(quantity(1, "km") + hostQuantity(500, "m")), "1.5 km");
    EXPECT_EQ(shown(COtxInt(3) * hostQuantity(500, "m")), "1500.0 m");
    EXPECT_EQ((COtxInt(3) * hostQuantity(500, "m")).Quantity().GetPrecision(), 4);
    EXPECT_EQ(shown(COtxQuantity(hostQuantity(500, "m"), COtxUnit("km"), 16)), "0.5 km");
    EXPECT_EQ(OTX_THROWN_KIND(quantity(1, "km") + hostQuantity(500, "s")), invalidConversion);
}

TEST(HostQuantity, IsOrderedApartFromOurs) {
    const COtxValue host = hostQuantity(1, "m");
    for (const COtxValue& other :
         {COtxValue(quantity(1, "m")), COtxValue(quantity(1, "")), COtxValue(quantity(1, "widget"))}) {
        EXPECT_FALSE(host == other);
        EXPECT_FALSE(other == host);
        EXPECT_TRUE(other < host);
        EXPECT_FALSE(host < other);
    }
    EXPECT_TRUE(host < COtxUnit("m"));
    EXPECT_TRUE(host == COtxValue(host));
}

TEST(HostQuantity, OfTheTypeAloneIsRefused) {
    const COtxValue unit(std::make_shared<Hollow>(OTX::ValueType::Unit));
    const COtxValue hollow(std::make_shared<Hollow>(OTX::ValueType::Quantity));
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(1.0, unit, 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(hollow, COtxUnit("m"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(quantity(1, "m") + hollow), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(hollow + quantity(1, "m")), typeMismatch);
    EXPECT_FALSE(hollow == quantity(1, "m"));
    // An integer-backed enumeration whatever its type says.
    const COtxValue integer(std::make_shared<COtxIntBehaviour>(1, COtxInt::Decimal, OTX::ValueType::Quantity));
    EXPECT_TRUE(integer == COtxInt(1));
    EXPECT_TRUE(COtxInt(1) == integer);
    EXPECT_TRUE(quantity(1, "") == integer);
    EXPECT_TRUE(integer < quantity(1, "m"));
}
