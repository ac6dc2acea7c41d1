// Arguments of a run that nothing in the document takes.
#include "program/UnknownArguments.h"

#include "program/Inputs.h"
#include "program/Options.h"
#include "text/OneLine.h"

#include <otx/value/IString.h>
#include <velkotx/DocumentInfo.h>

#include <algorithm>
#include <ostream>
#include <string>

namespace velkotx::host {

namespace {

// The one that Run takes, or null.
const ProcedureInfo* procedureOf(const DocumentInfo& document, const std::string& name) {
    const ProcedureInfo* last = nullptr;
    for (const ProcedureInfo& procedure : document.procedures)
        if (procedure.runnable && procedure.name == name)
            last = &procedure;
    return last;
}

bool takesArgument(const ParameterInfo& parameter) {
    return parameter.direction != ParameterDirection::out;
}

bool isKnown(const DocumentInfo& document, const ProcedureInfo& procedure, const std::string& name) {
    const auto hasName = [&](const auto& declaration) { return declaration.name == name; };
    return std::ranges::any_of(procedure.parameters,
                               [&](const ParameterInfo& parameter) { return takesArgument(parameter) && hasName(parameter); }) ||
           std::ranges::any_of(document.globals, hasName);
}

// "takes 'a', 'b'".
std::string whatIsTaken(const ProcedureInfo& procedure) {
    std::string names;
    for (const ParameterInfo& parameter : procedure.parameters)
        if (takesArgument(parameter))
            names += (names.empty() ? "'" : ", '") + oneLine(parameter.name) + '\'';
    return names.empty() ? "takes none" : "takes " + names;
}

// The option or the file that an argument came from; the option wins.
std::string sourceOf(const std::string& name, const SetUpOptions& options) {
    const auto hasName = [&](const std::string& argument) { return argument.starts_with(name + '='); };
    return std::ranges::any_of(options.arguments, hasName) ? "--arg" : oneLine(displayName(options.argumentsFile));
}

}  // namespace

void warnOfUnknownArguments(const DocumentInfo& document, const SetUpOptions& options, const COtxValue& arguments,
                            std::ostream& err) {
    const ProcedureInfo* const procedure = procedureOf(document, options.procedure);
    if (procedure == nullptr)
        return;
    for (const auto& [key, value] : arguments.Map()) {
        const std::string name = key.String();
        if (!isKnown(document, *procedure, name))
            err << "velkotx: " << sourceOf(name, options) << ": '" << oneLine(name) << "' is no in or inout parameter of '"
                << oneLine(procedure->name) << "', which " << whatIsTaken(*procedure) << ", and no global of the document\n";
    }
}

}  // namespace velkotx::host
