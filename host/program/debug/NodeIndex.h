// The nodes of a document, to be found by id, by name and by procedure.
#pragma once

#include <velkotx/DocumentInfo.h>

#include <map>
#include <string>
#include <vector>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

// Immutable.
class NodeIndex {
public:
    struct Place {
        std::string procedure;
        NodeInfo node;
    };

    explicit NodeIndex(const Sequencer& sequencer);
    // Of nodes that are known already, by the procedure's name.
    explicit NodeIndex(std::map<std::string, std::vector<NodeInfo>> procedures);

    // In document order; null for a procedure that can't be run.
    const std::vector<NodeInfo>* nodesOf(const std::string& procedure) const;

    // The ids that are meant by an id or a name: that id, else those of all nodes of the name.
    std::vector<std::string> idsOf(const std::string& idOrName) const;

    // The node of an id. Where several procedures have it, that of the innermost frame; null where none has.
    const Place* find(const std::string& id, const std::vector<std::string>& frames = {}) const;

private:
    std::map<std::string, std::vector<NodeInfo>> procedures_;
    std::multimap<std::string, Place> places_;  // by id
};

// "n3 Assignment 'Switch'", fit for one line.
std::string nodeText(const NodeInfo& node);

}  // namespace velkotx::host
