#pragma once
// The order in which a tree shows its nodes.

#include <vector>

#include "platform/tree_model.h"

namespace pelk {

/// Sorts nodes of one model as a fully expanded tree shows them, from top to bottom.
void sortByRow(std::vector<TreeNode*>& nodes);

}  // namespace pelk
