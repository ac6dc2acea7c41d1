// The nodes of a document.
#include "program/debug/NodeIndex.h"

#include "text/OneLine.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

namespace {

std::map<std::string, std::vector<NodeInfo>> nodesByProcedure(const Sequencer& sequencer) {
    std::map<std::string, std::vector<NodeInfo>> procedures;
    for (const ProcedureInfo& procedure : DescribeDocument(sequencer).procedures)
        if (procedure.runnable)
            procedures.emplace(procedure.name, DescribeNodes(sequencer, procedure.name));
    return procedures;
}

}  // namespace

NodeIndex::NodeIndex(const Sequencer& sequencer) : NodeIndex(nodesByProcedure(sequencer)) {}

NodeIndex::NodeIndex(std::map<std::string, std::vector<NodeInfo>> procedures) : procedures_(std::move(procedures)) {
    for (const auto& [procedure, nodes] : procedures_)
        for (const NodeInfo& node : nodes)
            places_.emplace(node.id, Place{procedure, node});
}

const std::vector<NodeInfo>* NodeIndex::nodesOf(const std::string& procedure) const {
    const auto found = procedures_.find(procedure);
    return found != procedures_.end() ? &found->second : nullptr;
}

std::vector<std::string> NodeIndex::idsOf(const std::string& idOrName) const {
    if (places_.contains(idOrName))
        return {idOrName};
    std::vector<std::string> ids;
    for (const auto& [procedure, nodes] : procedures_)
        for (const NodeInfo& node : nodes)
            if (node.name == idOrName && std::ranges::find(ids, node.id) == ids.end())
                ids.push_back(node.id);
    return ids;
}

const NodeIndex::Place* NodeIndex::find(const std::string& id, const std::vector<std::string>& frames) const {
    const auto [begin, end] = places_.equal_range(id);
    for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame)
        for (auto place = begin; place != end; ++place)
            if (place->second.procedure == *frame)
                return &place->second;
    return begin != end ? &begin->second : nullptr;
}

std::string nodeText(const NodeInfo& node) {
    std::string text = oneLine(node.id) + ' ' + oneLine(node.type);
    if (!node.name.empty())
        text += " '" + oneLine(node.name) + '\'';
    return text;
}

}  // namespace velkotx::host
