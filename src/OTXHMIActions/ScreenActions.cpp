// The actions that open, highlight and close screens.
#include <OTXContext/OtxContext.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXHMIIF/HMI.h>
#include <OTXHMIIF/ScreenArguments.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>
#include <schema/HMI.h>

namespace HMI {

namespace {

template <class Arguments>
void bind(OTX::ScreenArguments::Variables& variables, const Arguments& arguments, otxns::OtxContext& context) {
    for (const auto& argument : arguments)
        variables.emplace(argument.param(), context.Variables().GetVariable(argument.variable().name().key()));
}

OTX::ScreenArguments bound(const ScreenArguments& arguments, otxns::OtxContext& context) {
    OTX::ScreenArguments result;
    for (const ScreenTermArgument& argument : arguments.termArg())
        result.terms.emplace(argument.param(), otxns::evaluate(argument.term(), context));
    bind(result.in, arguments.inArg(), context);
    bind(result.inout, arguments.inoutArg(), context);
    bind(result.out, arguments.outArg(), context);
    return result;
}

std::string nameIn(const ScreenVariable& variable, otxns::OtxContext& context) {
    return variable.read(context).String();
}

}  // namespace

// The handle is there before anything opens.
template <>
void OpenScreen_impl<OpenScreen_base>::exec(otxns::OtxContext& context) const {
    const std::string name = screen();
    if (screenHandle().present()) screenHandle()->write(context, COtxString(name));
    OTX::ScreenArguments bindings;
    if (arguments().present()) bindings = bound(arguments().get(), context);
    context.HMI().openScreen(name, modal().present() && modal().get(), bindings);
}

template <>
void CloseScreen_impl<CloseScreen_base>::exec(otxns::OtxContext& context) const {
    const std::string name = nameIn(screen(), context);
    context.HMI().closeScreen(name);
}

template <>
void HighlightScreen_impl<HighlightScreen_base>::exec(otxns::OtxContext& context) const {
    const std::string name = nameIn(screen(), context);
    context.HMI().highlight(name);
}

}  // namespace HMI
