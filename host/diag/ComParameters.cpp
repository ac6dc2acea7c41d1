// The ComParameters of a channel: what a sequence sets, and the times that come of them.
#include "diag/ComParameters.h"

#include "diag/Described.h"
#include "diag/DiagFailure.h"
#include "diag/DiagParameter.h"
#include "diag/KnownNames.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>
#include <variant>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

constexpr const char* p2Max = "CP_P2Max";
constexpr const char* p2Star = "CP_P2Star";
constexpr const char* completionTimeout = "CP_RC78CompletionTimeout";
constexpr const char* testerPresentTime = "CP_TesterPresentTime";
constexpr const char* testerPresentHandling = "CP_TesterPresentHandling";

ParameterDescription number(const std::string& name, Coding coding, PlainValue value) {
    ParameterDescription parameter;
    parameter.name = name;
    parameter.coding = coding;
    parameter.bitLength = 64;
    parameter.defaultValue = std::move(value);
    return parameter;
}

// A ComParameter is of the type of its default; a text when it has none.
ParameterDescription simple(const ComParameterDescription& described) {
    const PlainValue& value = described.defaultValue;
    if (std::holds_alternative<bool>(value)) return number(described.name, Coding::Boolean, value);
    if (std::holds_alternative<std::int64_t>(value)) return number(described.name, Coding::Signed, value);
    if (std::holds_alternative<double>(value)) return number(described.name, Coding::Float, value);
    const bool bytes = std::holds_alternative<Bytes>(value);
    ParameterDescription parameter = number(described.name, bytes ? Coding::ByteField : Coding::Utf8, value);
    parameter.extent = Extent::Rest;
    return parameter;
}

ParameterDescription described(const ComParameterDescription& source) {
    if (source.parts.empty())
        return simple(source);
    ParameterDescription parameter;
    parameter.name = source.name;
    parameter.kind = ParameterKind::Structure;
    for (const ComParameterDescription& part : source.parts)
        parameter.fields.push_back(described(part));
    return parameter;
}

ParameterDescription time(const char* name, Clock::Duration value) {
    ParameterDescription parameter = number(name, Coding::Unsigned, std::int64_t{value.count()});
    parameter.unit = "us";
    // A century, so that sums of times don't overflow.
    parameter.maximum = 3.2e15;
    return parameter;
}

std::shared_ptr<const MessageDescription> describe(const std::vector<ComParameterDescription>& sources) {
    const UdsTiming usual;
    auto message = std::make_shared<MessageDescription>();
    message->name = "ComParameters";
    auto& parameters = message->parameters;
    parameters = {time(p2Max, usual.p2), time(p2Star, usual.p2Star), time(completionTimeout, usual.pendingCap),
                  time(testerPresentTime, usual.testerPresent), number(testerPresentHandling, Coding::Boolean, true)};
    for (const ComParameterDescription& source : sources) {
        const auto known = std::find_if(parameters.begin(), parameters.end(),
                                        [&](const ParameterDescription& one) { return one.name == source.name; });
        if (known != parameters.end() && !source.parts.empty())
            fail(Exceptions_e::TypeMismatchException, "ComParameter '" + source.name + "' has a value, and no parts");
        if (known != parameters.end())
            known->defaultValue = source.defaultValue;
        else
            parameters.push_back(described(source));
    }
    return message;
}

}  // namespace

ComParameters::ComParameters(const std::vector<ComParameterDescription>& described)
    : description_(describe(described)), values_(makeDescribed<RequestParameters>(description_)) {}

ParameterPlace ComParameters::find(const COtxValue& name, bool complex) const {
    const auto& all = description_->parameters;
    const auto nameOf = [](const ParameterDescription& one) { return one.name; };
    if (std::none_of(all.begin(), all.end(), [&](const auto& one) { return one.name == name.String(); }))
        fail(Exceptions_e::UnknownTargetException,
             "there is no ComParameter '" + name.String() + "'" + knownNames(all, nameOf));
    const ParameterPlace place = values_->child(ParameterTree::root, COtxString(name.String()));
    if (values_->isComplex(place) != complex)
        fail(Exceptions_e::TypeMismatchException,
             "ComParameter '" + name.String() + (complex ? "' is not complex" : "' is complex"));
    return place;
}

void ComParameters::set(const COtxValue& name, const COtxValue& value) { values_->set(find(name, false), value); }

COtxValue ComParameters::value(const COtxValue& name, OTX::ValueType type) const {
    return values_->value(find(name, false), type);
}

COtxValue ComParameters::defaultValue(const COtxValue& name, OTX::ValueType type) const {
    const ParameterPlace place = find(name, false);
    const RequestParameters defaults(*description_);
    return defaults.value(place, type);
}

void ComParameters::setComplex(const COtxValue& parameter) {
    const auto* const given = dynamic_cast<const DiagParameter*>(&parameter.Parameter());
    const auto* const from =
        given == nullptr ? nullptr : dynamic_cast<const RequestParameters*>(given->self().parameters().get());
    if (from == nullptr)
        fail(Exceptions_e::TypeMismatchException, "this is no complex ComParameter");
    const ParameterPlace place = find(COtxString(from->nameOf(given->self().place())), true);
    if (from->description(given->self().place()) == values_->description(place))
        return values_->copyFrom(*from, place);
    // Of another channel: by the names.
    values_->set(place, from->value(given->self().place(), OTX::ValueType::Map));
}

COtxValue ComParameters::complex(const COtxValue& name) const {
    const ParameterPlace place = find(name, true);
    const auto copy = makeDescribed<RequestParameters>(description_);
    copy->copyFrom(*values_, place);
    return makeParameter(copy, place);
}

COtxValue ComParameters::defaultComplex(const COtxValue& name) const {
    const ParameterPlace place = find(name, true);
    return makeParameter(makeDescribed<RequestParameters>(description_), place);
}

Clock::Duration ComParameters::time(const char* name) const {
    const COtxValue microseconds = value(COtxString(name), OTX::ValueType::Integer);
    return Clock::Duration(microseconds.Int());
}

UdsTiming ComParameters::timing() const {
    UdsTiming timing{time(p2Max), time(p2Star), time(completionTimeout), time(testerPresentTime)};
    if (!value(COtxString(testerPresentHandling), OTX::ValueType::Boolean).Bool())
        timing.testerPresent = Clock::Duration(0);
    return timing;
}

}  // namespace velkotx::host
