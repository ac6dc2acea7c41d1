// The Unit value.
#include <otx/value/COtxUnit.h>

#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "Refusal.h"
#include "TextValues.h"
#include "UnitValues.h"
#include "unit/UnitParser.h"

#include <otx/value/Json.h>

#include <atomic>
#include <new>
#include <typeinfo>

namespace otx {

namespace {

class UnitBehaviour final : public NativeBehaviour<UnitBehaviour>, public OTX::IUnit {
public:
    explicit UnitBehaviour(const std::string& name) : NativeBehaviour(OTX::ValueType::Unit), name_(name) {}
    ~UnitBehaviour() override { delete resolved_.load(std::memory_order_acquire); }

    COtxValue ToString() override { return makeText(name_); }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        return conversion.OtxForm() ? taggedJson(Type(), makeText(name_)) : makeText(name_);
    }
    const OTX::IUnit& IUnit() const override { return *this; }
    const char* what() const override { return name_.c_str(); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap&) const override { return COtxUnit(name_); }

    const std::string& Name() const override { return name_; }

    bool equalTo(const COtxValueBehaviour& right) const { return name_ == right.IUnit().Name(); }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const { return name_ <=> right.IUnit().Name(); }

    // Threads that meet here all parse, and one of them leaves its result.
    std::optional<ResolvedUnit> resolved() const noexcept {
        if (const Resolved* const known = resolved_.load(std::memory_order_acquire)) return *known;
        const Resolved unit = resolveUnit(name_);
        const Resolved* kept = new (std::nothrow) Resolved(unit);
        const Resolved* expected = nullptr;
        if (!resolved_.compare_exchange_strong(expected, kept, std::memory_order_acq_rel)) delete kept;
        return unit;
    }

private:
    using Resolved = std::optional<ResolvedUnit>;

    const std::string name_;
    // Null until the unit is first needed in a conversion.
    mutable std::atomic<const Resolved*> resolved_{nullptr};
};

[[noreturn]] void failUnknown(const std::string& name) {
    fail(OTX::Exceptions_e::UnknownUnitException, "Unit \"" + name + "\" is unknown");
}

}  // namespace

const std::string& unitName(const COtxValue& unit) {
    static const std::string none;
    return unit.Type() == OTX::ValueType::Empty ? none : unit.Unit().Name();
}

std::optional<ResolvedUnit> resolvedUnit(const COtxValue& unit) {
    const COtxValueBehaviour* const behaviour = unit.GetBehaviourReference().get();
    if (behaviour == nullptr) return ResolvedUnit();
    if (typeid(*behaviour) == typeid(UnitBehaviour)) return static_cast<const UnitBehaviour&>(*behaviour).resolved();
    return resolveUnit(unitName(unit));
}

ResolvedUnit neededUnit(const COtxValue& unit) {
    const std::optional<ResolvedUnit> resolved = resolvedUnit(unit);
    if (!resolved) failUnknown(unitName(unit));
    return *resolved;
}

UnitTerms neededTerms(const COtxValue& unit) {
    // What is read here may still measure too much to be a unit.
    static_cast<void>(neededUnit(unit));
    return *parseUnit(unitName(unit));
}

void failConversion(const COtxValue& from, const COtxValue& to) {
    fail(OTX::Exceptions_e::InvalidConversionException,
         "Unit \"" + unitName(from) + "\" can't be converted to unit \"" + unitName(to) + "\"");
}

}  // namespace otx

COtxUnit::COtxUnit() : COtxUnit(std::string()) {}
COtxUnit::COtxUnit(const std::string& name) : COtxValue(otx::makePlain<otx::UnitBehaviour>(name)) {}
