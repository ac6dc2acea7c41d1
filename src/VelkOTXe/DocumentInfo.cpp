// Describes a loaded document to the host.
#include <ClassNames.h>
#include <VelkOTXe/Sequencer_impl.h>

#include <schema/core.h>
#include <velkotx/DocumentInfo.h>

#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace velkotx {

namespace {

// "Integer" of "class otxns::Integer_impl<class otxns::Integer_base>", "DiagCom::Request" of "class DiagCom::Request".
std::string plainName(std::string_view name) {
    name = name.substr(0, name.find('<'));
    for (const std::string_view prefix : {"class ", "otxns::"})
        if (name.starts_with(prefix))
            name.remove_prefix(prefix.size());
    if (constexpr std::string_view suffix = "_impl"; name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    return std::string(name);
}

std::string plainName(const otxns::DataType& type) {
    return plainName(otxns::runtimeClass(type));
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

bool isRunnable(const otxns::Procedure& procedure) {
    return procedure.name().present() && procedure.realisation().present();
}

ProcedureInfo describe(const otxns::Procedure& procedure) {
    ProcedureInfo info;
    info.name = textOf(procedure.name());
    info.visibility = textOf(procedure.visibility());
    info.specification = textOf(procedure.specification());
    info.runnable = isRunnable(procedure);
    if (procedure.realisation().present() && procedure.realisation()->parameters().present()) {
        const otxns::ParameterDeclarations& parameters = procedure.realisation()->parameters().get();
        addParameters(parameters.inParam(), ParameterDirection::in, info.parameters);
        addParameters(parameters.inoutParam(), ParameterDirection::inout, info.parameters);
        addParameters(parameters.outParam(), ParameterDirection::out, info.parameters);
    }
    return info;
}

// A flow within a node, and what part of the node it is.
using Part = std::pair<std::string, const otxns::Flow*>;

// "lane 1", "lane 2" and so on.
std::string numbered(const char* part, std::size_t index) {
    std::string text = part;
    text += ' ';
    text += std::to_string(index + 1);
    return text;
}

std::vector<Part> partsOf(const otxns::BranchRealisation& branch) {
    std::vector<Part> parts{{"if", &branch.if_().flow()}};
    for (std::size_t i = 0; i < branch.elseif().size(); ++i)
        parts.emplace_back(numbered("elseif", i), &branch.elseif()[i].flow());
    if (branch.else_().present())
        parts.emplace_back("else", &branch.else_().get());
    return parts;
}

// In the order in which they run.
std::vector<Part> partsOf(const otxns::HandlerRealisation& handler) {
    std::vector<Part> parts{{"try", &handler.try_()}};
    for (std::size_t i = 0; i < handler.catch_().size(); ++i)
        parts.emplace_back(numbered("catch", i), &handler.catch_()[i].flow());
    if (handler.finally().present())
        parts.emplace_back("finally", &handler.finally().get());
    return parts;
}

std::vector<Part> partsOf(const otxns::ParallelRealisation& parallel) {
    std::vector<Part> parts;
    for (std::size_t i = 0; i < parallel.lane().size(); ++i)
        parts.emplace_back(numbered("lane", i), &parallel.lane()[i]);
    return parts;
}

std::vector<Part> partsOf(const otxns::LoopRealisation& loop) {
    return {{"", &loop.flow()}};
}

std::vector<Part> partsOf(const otxns::Flow& body) {
    return {{"", &body}};
}

template <class Compound>
std::vector<Part> partsOfRealisation(const Compound& node) {
    return node.realisation().present() ? partsOf(node.realisation().get()) : std::vector<Part>();
}

// A group may have several realisations, of which the valid one runs.
std::vector<Part> partsOfGroup(const otxns::Group& group) {
    std::vector<Part> parts;
    for (std::size_t i = 0; i < group.realisation().size(); ++i)
        parts.emplace_back(group.realisation().size() > 1 ? numbered("realisation", i) : "", &group.realisation()[i]);
    return parts;
}

std::vector<Part> partsOf(const otxns::Node& node) {
    if (const auto* branch = dynamic_cast<const otxns::Branch*>(&node))
        return partsOfRealisation(*branch);
    if (const auto* loop = dynamic_cast<const otxns::Loop*>(&node))
        return partsOfRealisation(*loop);
    if (const auto* handler = dynamic_cast<const otxns::Handler*>(&node))
        return partsOfRealisation(*handler);
    if (const auto* parallel = dynamic_cast<const otxns::Parallel*>(&node))
        return partsOfRealisation(*parallel);
    if (const auto* section = dynamic_cast<const otxns::MutexGroup*>(&node))
        return partsOfRealisation(*section);
    if (const auto* group = dynamic_cast<const otxns::Group*>(&node))
        return partsOfGroup(*group);
    return {};
}

NodeInfo describe(const otxns::Node& node, const std::string& part, std::size_t depth) {
    NodeInfo info;
    info.id = node.id();
    info.name = textOf(node.name());
    info.type = plainName(node.type());
    info.part = part;
    info.depth = depth;
    info.disabled = node.disabled().present() && node.disabled().get();
    return info;
}

// A flow whose nodes are being described.
struct OpenFlow {
    const otxns::Flow* flow;
    std::string part;
    std::size_t depth;
    std::size_t next = 0;

    const otxns::Node* takeNode() {
        const std::size_t index = next++;
        if (index < flow->blockBegin().size())
            return &flow->blockBegin()[index];
        if (index == flow->blockBegin().size() && flow->blockEnd().present())
            return &flow->blockEnd().get();
        return nullptr;
    }
};

// Walks down nodes within nodes in a loop: documents may nest them deeper than a stack bears.
std::vector<NodeInfo> describeNodes(const otxns::Flow& flow) {
    std::vector<NodeInfo> nodes;
    std::vector<OpenFlow> open{{&flow, "", 0}};
    while (!open.empty()) {
        const otxns::Node* const node = open.back().takeNode();
        if (node == nullptr) {
            open.pop_back();
            continue;
        }
        const std::size_t depth = open.back().depth;
        nodes.push_back(describe(*node, open.back().part, depth));
        const std::vector<Part> parts = partsOf(*node);
        nodes.back().flows = parts.size();
        for (auto part = parts.rbegin(); part != parts.rend(); ++part)  // the first one ends on top
            open.push_back({part->second, part->first, depth + 1});
    }
    return nodes;
}

const otxns::Otx& documentOf(const Sequencer& sequencer) {
    const auto* implementation = dynamic_cast<const otxns::Sequencer_impl*>(&sequencer);
    if (implementation == nullptr)
        throw std::invalid_argument("Not a Sequencer of CreateSequencer");
    return implementation->document();
}

}  // namespace

DocumentInfo DescribeDocument(const Sequencer& sequencer) {
    const otxns::Otx& document = documentOf(sequencer);
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

std::vector<NodeInfo> DescribeNodes(const Sequencer& sequencer, const std::string& procedure) {
    const otxns::Otx& document = documentOf(sequencer);
    const otxns::ProcedureRealisation* found = nullptr;
    if (document.procedures().present())
        for (const otxns::Procedure& candidate : document.procedures()->procedure())
            if (isRunnable(candidate) && candidate.name().get() == procedure)
                found = &candidate.realisation().get();
    if (found == nullptr)
        throw std::invalid_argument("No procedure '" + procedure + "'");
    return describeNodes(found->flow());
}

}  // namespace velkotx
