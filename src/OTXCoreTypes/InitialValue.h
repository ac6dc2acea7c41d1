// The initial value of a data type: its `init` term, else the type's default.
#pragma once

#include <OTXCoreTerms/Evaluate.h>

namespace otxns {

template <class Type, class MakeDefault>
COtxValue initialValue(const Type& type, OtxContext& context, MakeDefault makeDefault) {
    if (type.init().present()) return evaluate(type.init().get(), context);
    return makeDefault();
}

}  // namespace otxns
