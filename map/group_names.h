#pragma once
// What groups are called.

#include <string>
#include <vector>

#include "map/graph.h"
#include "map/groups.h"

namespace pelk {

/// Returns a name for each group: the registered mail domain that most of its people have and few
/// others, and else the label of the person with most e-mails. A domain of everybody, such as that
/// of a free mail service, names no group.
std::vector<std::string> groupNames(const Graph& graph, const Groups& groups);

}  // namespace pelk
