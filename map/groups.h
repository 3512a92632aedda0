#pragma once
// Groups of people who write to each other more than to others.

#include <cstdint>
#include <vector>

#include "map/graph.h"

namespace pelk {

/// By person: the number of the group. Group 0 is the largest; of equally large ones, the one with
/// the smallest number of a person comes first.
using Groups = std::vector<std::uint32_t>;

/// The group of a person who is in none.
inline constexpr std::uint32_t kNoGroup = UINT32_MAX;

/// Returns groups of high modularity by the Louvain method (Blondel, Guillaume, Lambiotte and
/// Lefebvre, "Fast unfolding of communities in large networks", J. Stat. Mech. P10008, 2008). A
/// person without links is a group of its own.
Groups findGroups(const Graph& graph);

/// Returns the modularity of groups: the share of e-mails inside groups, less the share expected
/// if the people's e-mails were spread at random; 0 if there are no links.
double modularityOf(const Graph& graph, const Groups& groups);

/// Returns the number of people of each group. `kNoGroup` is not one.
std::vector<std::size_t> groupSizes(const Groups& groups);

}  // namespace pelk
