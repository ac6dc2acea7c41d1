// The parameters of requests and responses that a host has ready in memory.
#pragma once

#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/Values.h>

#include <string>
#include <utility>
#include <vector>

namespace bench {

// Takes any value and forgets it; gives the one that was made beforehand, whatever type is asked for. Any thread.
class MemoryParameter : public COtxValueBehaviour, public OTX::IParameter {
public:
    MemoryParameter(std::string name, COtxValue value)
        : COtxValueBehaviour(OTX::ValueType::Parameter), name_(std::move(name)), value_(std::move(value)) {}

    OTX::IParameter& IParameter() override { return *this; }
    const std::string& name() const noexcept { return name_; }

    void SetParameterValue(const COtxValue&) override {}
    COtxValue GetParameterValue(OTX::ValueType) override { return value_; }
    COtxValue GetParameterName() override { return COtxString(name_); }
    COtxValue GetParameterDefaultValue() override { return value_; }
    COtxValue IsStringParameter() override { return COtxBool(false); }
    COtxValue IsBooleanParameter() override { return COtxBool(false); }
    COtxValue IsNumericParameter() override { return COtxBool(true); }
    COtxValue IsComplexParameter() override { return COtxBool(false); }
    COtxValue IsByteFieldParameter() override { return COtxBool(false); }

private:
    const std::string name_;
    const COtxValue value_;
};

// Paths have one step, a name. Any thread.
class MemoryContainer : public OTX::IParameterContainer {
public:
    explicit MemoryContainer(std::vector<std::pair<std::string, COtxValue>> parameters) {
        for (auto& [name, value] : parameters) {
            auto parameter = std::make_shared<MemoryParameter>(name, std::move(value));
            parameters_.emplace_back(name, COtxValue(std::move(parameter)));
        }
    }

    COtxValue GetParameterByPath(const COtxValue& path) override { return GetParameterByStep(path.List().front()); }
    COtxValue GetParameterByStep(const COtxValue& step) override {
        const std::string& wanted = step.String();
        for (const auto& [name, parameter] : parameters_)
            if (name == wanted) return parameter;
        return {};
    }
    void SetParameterValueBySemantic(const COtxValue&, const COtxValue&) override {}
    COtxValue GetParameterBySemantic(const COtxValue& semantic) override { return GetParameterByStep(semantic); }
    COtxValue GetParameterAsList() override { return COtxList(); }

private:
    std::vector<std::pair<std::string, COtxValue>> parameters_;
};

}  // namespace bench
