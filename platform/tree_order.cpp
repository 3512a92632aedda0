#include "platform/tree_order.h"

#include <algorithm>
#include <utility>

namespace pelk {
namespace {

/// Returns the rows from the top level down to the node.
std::vector<int> pathTo(const TreeNode& node) {
    std::vector<int> path;
    for (const TreeNode* at = &node; at->parent() != nullptr; at = at->parent())
        path.push_back(at->row());
    std::reverse(path.begin(), path.end());
    return path;
}

}  // namespace

void sortByRow(std::vector<TreeNode*>& nodes) {
    std::vector<std::pair<std::vector<int>, TreeNode*>> byPath;
    byPath.reserve(nodes.size());
    for (TreeNode* const node : nodes)
        byPath.emplace_back(pathTo(*node), node);
    std::sort(byPath.begin(), byPath.end());
    std::transform(byPath.begin(), byPath.end(), nodes.begin(),
                   [](const auto& entry) { return entry.second; });
}

}  // namespace pelk
