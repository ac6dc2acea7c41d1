// The host's way to control units.
#include "RecordingDiagCom.h"

#include "Answers.h"
#include "Handle.h"
#include "RecordingChannel.h"

#include <otx/host/IPduComInterface.h>

namespace documents {

namespace {

// The interface's label, or the empty value for none.
COtxValue asArgument(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface) {
    const auto handle = std::dynamic_pointer_cast<Handle>(comInterface);
    return handle == nullptr ? COtxValue() : COtxString(handle->label());
}

}  // namespace

COtxValue RecordingDiagCom::GetComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName,
                                          const COtxValue& performVariantSelection) {
    return channel("GetComChannel", identifier, {identifier, ecuVariantName, performVariantSelection});
}

COtxValue RecordingDiagCom::GetComChannelFromComInterface(
    const std::shared_ptr<ComInterface::IPduComInterface>& comInterface, const COtxValue& identifier,
    const COtxValue& ecuVariantName, const COtxValue& performVariantSelection) {
    return channel("GetComChannelFromComInterface", identifier,
                   {asArgument(comInterface), identifier, ecuVariantName, performVariantSelection});
}

COtxValue RecordingDiagCom::CreateComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName) {
    return channel("CreateComChannel", identifier, {identifier, ecuVariantName});
}

COtxValue RecordingDiagCom::CreateComChannelFromComInterface(
    const std::shared_ptr<ComInterface::IPduComInterface>& comInterface, const COtxValue& identifier,
    const COtxValue& ecuVariantName) {
    return channel("CreateComChannelFromComInterface", identifier, {asArgument(comInterface), identifier, ecuVariantName});
}

COtxValue RecordingDiagCom::channel(const char* operation, const COtxValue& identifier,
                                    const std::vector<COtxValue>& arguments) {
    recorder_.call("DiagCom", operation, arguments);
    if (isMissing(identifier)) return nothing();
    return COtxValue(std::make_shared<RecordingChannel>(recorder_, services_, textOf(identifier)));
}

}  // namespace documents
