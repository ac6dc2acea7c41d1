// The nodes of a procedure as an indented tree.
#pragma once

#include <velkotx/DocumentInfo.h>

#include <set>
#include <string>
#include <vector>

namespace velkotx::host {

// One line a node, with the current one (none, if empty) marked ">" and breakpoints marked "*"; a part of a node, such as
// "[else]", has a line of its own ahead of its nodes.
std::string listNodes(const std::vector<NodeInfo>& nodes, const std::string& current,
                      const std::set<std::string>& breakpoints);

}  // namespace velkotx::host
