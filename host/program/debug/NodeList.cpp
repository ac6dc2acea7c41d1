// The nodes of a procedure as an indented tree.
#include "program/debug/NodeList.h"

#include "program/debug/NodeIndex.h"

namespace velkotx::host {

std::string listNodes(const std::vector<NodeInfo>& nodes, const std::string& current,
                      const std::set<std::string>& breakpoints) {
    std::string text;
    std::vector<std::string> parts;  // that of the last node of each depth
    for (const NodeInfo& node : nodes) {
        const std::string indentation(2 * node.depth, ' ');
        parts.resize(node.depth + 1);
        if (parts.back() != node.part) {
            text += "   " + indentation + '[' + node.part + "]\n";
            parts.back() = node.part;
        }
        text += node.id == current ? '>' : ' ';
        text += breakpoints.contains(node.id) ? "* " : "  ";
        text += indentation + nodeText(node) + (node.disabled ? " (disabled)\n" : "\n");
    }
    return text;
}

}  // namespace velkotx::host
