#pragma once
// The backbone of a network: the few links that show its structure. Everything linked with
// everything shows nothing.

#include "map/graph.h"

namespace pelk {

/// The chance at which a link counts as more than random.
inline constexpr double kBackboneSignificance = 0.05;

/// Returns the graph with fewer links and the same people. It keeps the links that the disparity
/// filter finds significant for one of their ends (Serrano, Boguñá and Vespignani, "Extracting the
/// multiscale backbone of complex weighted networks", PNAS 106(16), 2009), and the strongest link
/// of each person, because the filter alone leaves people with few e-mails without any. Of equally
/// strong links, the one to the person with the most e-mails counts as the strongest, then the one
/// to the smallest number.
Graph backboneOf(const Graph& graph, double significance = kBackboneSignificance);

}  // namespace pelk
