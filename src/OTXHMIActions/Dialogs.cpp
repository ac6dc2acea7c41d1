// The four dialogs: modal screens with reserved names. All checks are made before the host hears anything.
#include <OTXCoreTerms/Content.h>
#include <OTXHMIActions/DialogEntries.h>
#include <OTXHMIActions/Restriction.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxMessageType.h>
#include <otx/value/IString.h>

namespace HMI {

namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw COtxException(OTX::Exceptions_e::OutOfBoundsException, text);
}

// A negative selection passes.
void requireSelectable(const COtxValue& selection, std::size_t choices) {
    const std::int64_t index = selection.Int();
    if (index < 0 || static_cast<std::uint64_t>(index) < choices) return;
    // The missing blank is meant.
    refuse("Default selection " + std::string(selection.ToString().String()) + "is larger than available choices");
}

}  // namespace

template <>
void ChoiceDialog_impl<ChoiceDialog_base>::exec(otxns::OtxContext& context) const {
    DialogEntries entries(context);
    const COtxValue choices = otxns::evaluate(options(), context);
    const auto count = [&] { return otxns::lookInto(context, [&] { return choices.List().size(); }); };
    if (count() == 0) refuse("Must provide choices for a ChoiceDialog");
    entries.addTexts(*this);
    entries.add("options", choices);
    if (default_().present()) {
        // Evaluated once for the check and once for the host: this is meant.
        requireSelectable(otxns::evaluate(default_().get(), context), count());
        entries.add("default", otxns::evaluate(default_().get(), context));
    }
    entries.setResult(result());
    entries.open("ChoiceDialog");
}

template <>
void ConfirmDialog_impl<ConfirmDialog_base>::exec(otxns::OtxContext& context) const {
    DialogEntries entries(context);
    entries.addTexts(*this);
    entries.addOptional("messageType", messageType());
    entries.add("messageType", COtxMessageType(COtxMessageType::Info));  // unless it is there
    if (result().present()) entries.setResult(result().get());
    entries.open("ConfirmDialog");
}

// The host applies the restriction; here it is only looked at.
template <>
void InputDialog_impl<InputDialog_base>::exec(otxns::OtxContext& context) const {
    DialogEntries entries(context);
    entries.addTexts(*this);
    if (restriction().present()) {
        const COtxValue pattern = otxns::evaluate(restriction().get(), context);
        requireValidRestriction(pattern.String());
        entries.add("restriction", pattern);
    }
    entries.addOptional("instruction", instruction());
    entries.addOptional("initialValue", initialValue());
    entries.setResult(result());
    entries.open("InputDialog");
}

template <>
void ShowDocumentDialog_impl<ShowDocumentDialog_base>::exec(otxns::OtxContext& context) const {
    DialogEntries entries(context);
    entries.addTexts(*this);
    entries.add("document", otxns::evaluate(document(), context));
    entries.open("ShowDocumentDialog");
}

}  // namespace HMI
