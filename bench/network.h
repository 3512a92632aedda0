#pragma once
// Synthetic networks of people in groups, and what graph libraries make of them.

#include <optional>

#include "map/geometry.h"
#include "map/graph.h"
#include "map/groups.h"

namespace pelk {

/// Returns a connected network: each person has six links by preferential attachment (see
/// `makeMailGraph`), four of five of them inside a group of about forty people.
Graph makeGroupedNetwork(std::size_t people);

/// Returns the groups that igraph's Louvain method finds; nothing when igraph is not installed.
std::optional<Groups> igraphGroups(const Graph& graph);

/// Returns the positions that Graphviz's sfdp computes; nothing when Graphviz is not installed.
std::optional<Points> sfdpLayout(const Graph& graph);

}  // namespace pelk
