// One parameter of a message, as a sequence sees it.
#include "diag/DiagParameter.h"

#include "diag/DiagFailure.h"
#include "diag/RequestParameters.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxString.h>
#include <otx/value/Pool.h>

#include <utility>

namespace velkotx::host {

DiagParameter::DiagParameter(std::shared_ptr<MessageParameters> parameters, ParameterPlace place)
    : COtxValueBehaviour(OTX::ValueType::Parameter),
      self_(std::move(parameters), place),
      description_(self_.parameters()->description(place)),
      complex_(description_->kind != ParameterKind::Value) {}

OTX::IParameterContainer& DiagParameter::Container() {
    return complex_ ? self_ : COtxValueBehaviour::Container();
}

bool DiagParameter::IsContainer() const { return complex_; }

COtxValue DiagParameter::GetParameterName() { return COtxString(self_.parameters()->nameOf(self_.place())); }

void DiagParameter::SetParameterValue(const COtxValue& value) { self_.parameters()->set(self_.place(), value); }

COtxValue DiagParameter::IsStringParameter() {
    const Coding coding = description_->coding;
    return COtxBool(!complex_ && (coding == Coding::Ascii || coding == Coding::Utf8 || coding == Coding::TextTable));
}

COtxValue DiagParameter::IsBooleanParameter() { return COtxBool(!complex_ && description_->coding == Coding::Boolean); }
COtxValue DiagParameter::IsNumericParameter() { return COtxBool(!complex_ && isNumeric(description_->coding)); }
COtxValue DiagParameter::IsComplexParameter() { return COtxBool(complex_); }

COtxValue DiagParameter::IsByteFieldParameter() {
    return COtxBool(!complex_ && description_->coding == Coding::ByteField);
}

COtxValue DiagParameter::GetParameterValue(OTX::ValueType type) {
    return self_.parameters()->value(self_.place(), type);
}

COtxValue DiagParameter::GetParameterDefaultValue() {
    const auto* const request = dynamic_cast<const RequestParameters*>(self_.parameters().get());
    if (request == nullptr)
        fail(OTX::Exceptions_e::DiagComException,
             "parameter '" + description_->name + "' belongs to a response and has no default");
    return request->defaultValue(self_.place());
}

COtxValue makeParameter(const std::shared_ptr<MessageParameters>& parameters, ParameterPlace place) {
    return COtxValue(
        std::allocate_shared<DiagParameter>(otx::PoolAllocator<DiagParameter>(), parameters, place));
}

}  // namespace velkotx::host
