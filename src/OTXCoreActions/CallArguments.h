// What goes over to a procedure and comes back from it.
#pragma once

#include <OTXCoreActions/ArgumentMap.h>
#include <OtxVars/OtxVars.h>

#include <memory>
#include <utility>

namespace otxns {

// The value of an in parameter. One that is COtxInt(number) to everybody travels as the number.
class InValue {
public:
    explicit InValue(COtxValue&& value) noexcept : value_(std::move(value)) {}
    explicit InValue(long long number) noexcept : number_(number), isNumber_(true) {}

    // Gives the value away.
    void moveTo(OtxVars& variables, const Name& name) {
        if (isNumber_)
            variables.SetInteger(name, number_);
        else
            variables.Set(name, std::move(value_));
    }

private:
    COtxValue value_;
    long long number_ = 0;
    bool isNumber_ = false;
};

using Cells = ArgumentMap<std::shared_ptr<OtxVariable>>;

// The maps of one call, shared by caller and callee.
struct CallArguments {
    ArgumentMap<InValue> in;
    // The caller's cells.
    Cells inout;
    // The callee's.
    Cells out;
};

}  // namespace otxns
