// What a dialog sends and receives, gathered field by field.
#pragma once

#include <OTXContext/OtxContext.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXHMIIF/HMI.h>
#include <OTXHMIIF/ScreenArguments.h>
#include <schema/HMI.h>

#include <utility>

namespace HMI {

class DialogEntries {
public:
    explicit DialogEntries(otxns::OtxContext& context) : context_(context) {}

    void add(const char* name, const COtxValue& value) { parameters_.emplace(name, value); }

    // A field that is there is evaluated.
    template <class Field>
    void addOptional(const char* name, const Field& field) {
        if (field.present()) add(name, otxns::evaluate(field.get(), context_));
    }

    void addTexts(const Dialog& dialog) {
        addOptional("title", dialog.title());
        addOptional("message", dialog.message());
    }

    // The variable for the answer: its path isn't looked at.
    void setResult(const otxns::Variable& result) {
        out_.emplace("result", context_.Variables().GetVariable(result.name().key()));
    }

    // The dialog's whole life.
    void open(const char* dialog) { context_.HMI().openDialog(dialog, std::move(parameters_), std::move(out_)); }

private:
    otxns::OtxContext& context_;
    OTX::ScreenArguments::Values parameters_;
    OTX::ScreenArguments::Variables out_;
};

}  // namespace HMI
