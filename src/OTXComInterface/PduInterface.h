// The interface that a channel is to be opened on.
#pragma once

#include <otx/host/IPduComInterface.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>

namespace ComInterface {

// Shares the value's behaviour; null for a value whose behaviour isn't one, which is for the host to refuse.
inline std::shared_ptr<IPduComInterface> pduInterfaceOf(const COtxValue& value) {
    return std::dynamic_pointer_cast<IPduComInterface>(value.GetBehaviourReference());
}

}  // namespace ComInterface
