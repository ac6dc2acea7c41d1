// The scope of the values that the host handed in: a sequence can't change it.
#pragma once

#include <OtxVars/OtxVarMap.h>

namespace otxns {

class OtxContextVarMap : public OtxVarMap {
public:
    OtxContextVarMap() : OtxVarMap(Access::shared) {}

    using OtxVarMap::Bind;
    using OtxVarMap::Set;

    // Both refuse, for any name: InvalidReferenceException.
    bool Set(const Name& name, const COtxValue& value) override;
    bool Bind(const Name& name, const std::shared_ptr<OtxVariable>& cell) override;
};

}  // namespace otxns
