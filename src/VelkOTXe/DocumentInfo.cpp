// Describes a loaded document to the host.
#include <VelkOTXe/Sequencer_impl.h>

#include <otx/log/Names.h>
#include <schema/core.h>
#include <velkotx/DocumentInfo.h>

#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <typeinfo>

namespace velkotx {

namespace {

// "Integer" of "class otxns::Integer_impl<class otxns::Integer_base>", "DiagCom::Request" of "class DiagCom::Request".
std::string plainName(const otxns::DataType& type) {
    const std::string whole = Hvt::className(typeid(type).name());
    std::string_view name = whole;
    name = name.substr(0, name.find('<'));
    for (const std::string_view prefix : {"class ", "otxns::"})
        if (name.starts_with(prefix))
            name.remove_prefix(prefix.size());
    if (constexpr std::string_view suffix = "_impl"; name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    return std::string(name);
}

// Walks down containers of containers in a loop: documents may nest them deeper than a stack bears.
std::string typeName(const otxns::DataType& dataType) {
    std::string text;
    std::size_t open = 0;
    const otxns::DataType* type = &dataType;
    for (;; ++open) {
        if (const auto* list = dynamic_cast<const otxns::List*>(type)) {
            text += "List<";
            type = &list->itemType();
        } else if (const auto* map = dynamic_cast<const otxns::Map*>(type)) {
            text += "Map<" + plainName(map->keyType()) + ", ";
            type = &map->valueType();
        } else {
            return text + plainName(*type) + std::string(open, '>');
        }
    }
}

std::string typeName(const otxns::Declaration& declaration) {
    const auto& realisation = declaration.realisation();
    return realisation.present() ? typeName(realisation->dataType()) : "";
}

// The text of an optional member, empty where it is absent.
template <class Text>
std::string textOf(const Text& text) {
    if (text.present())
        return text.get();
    return {};
}

template <class Declarations>
void addParameters(const Declarations& declarations, ParameterDirection direction,
                   std::vector<ParameterInfo>& parameters) {
    for (const auto& declaration : declarations)
        parameters.push_back({textOf(declaration.name()), direction, typeName(declaration),
                              textOf(declaration.specification())});
}

template <class Declarations>
void addGlobals(const Declarations& declarations, GlobalKind kind, std::vector<GlobalInfo>& globals) {
    for (const auto& declaration : declarations)
        globals.push_back({textOf(declaration.name()), kind, typeName(declaration), declaration.visibility(),
                           textOf(declaration.specification())});
}

ProcedureInfo describe(const otxns::Procedure& procedure) {
    ProcedureInfo info;
    info.name = textOf(procedure.name());
    info.visibility = textOf(procedure.visibility());
    info.specification = textOf(procedure.specification());
    info.runnable = procedure.name().present() && procedure.realisation().present();
    if (procedure.realisation().present() && procedure.realisation()->parameters().present()) {
        const otxns::ParameterDeclarations& parameters = procedure.realisation()->parameters().get();
        addParameters(parameters.inParam(), ParameterDirection::in, info.parameters);
        addParameters(parameters.inoutParam(), ParameterDirection::inout, info.parameters);
        addParameters(parameters.outParam(), ParameterDirection::out, info.parameters);
    }
    return info;
}

}  // namespace

DocumentInfo DescribeDocument(const Sequencer& sequencer) {
    const auto* implementation = dynamic_cast<const otxns::Sequencer_impl*>(&sequencer);
    if (implementation == nullptr)
        throw std::invalid_argument("DescribeDocument: not a Sequencer of CreateSequencer");
    const otxns::Otx& document = implementation->document();
    DocumentInfo info;
    info.name = textOf(document.name());
    info.package = document.package();
    info.version = document.version();
    info.specification = textOf(document.specification());
    if (document.procedures().present())
        for (const otxns::Procedure& procedure : document.procedures()->procedure())
            info.procedures.push_back(describe(procedure));
    if (document.declarations().present()) {
        addGlobals(document.declarations()->constant(), GlobalKind::constant, info.globals);
        addGlobals(document.declarations()->variable(), GlobalKind::variable, info.globals);
        addGlobals(document.declarations()->context(), GlobalKind::context, info.globals);
    }
    return info;
}

}  // namespace velkotx
