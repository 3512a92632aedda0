#pragma once
// The best chains from one contact to another, best first. None of them meets a contact twice.

#include <cstddef>
#include <vector>

#include "links/link_graph.h"
#include "links/link_search.h"

namespace pelk {

/// Returns the `count` cheapest chains between the ends of `best`, or all if there are fewer. The
/// first is `best`, which must be a cheapest one in the graph; the others follow by ascending cost.
/// Equal costs have the same order in every run. A chain that costs `kNoLink` or more does not
/// count. From a contact to itself there is only `best`. Requires: `count` is at least 1.
///
/// Takes time in proportion to `count`, to the length of the chains, and at worst to the graph; in
/// practice each search visits few contacts besides those of a chain.
std::vector<LinkChain> rankChains(const LinkGraph& graph, const LinkChain& best, std::size_t count);

}  // namespace pelk
