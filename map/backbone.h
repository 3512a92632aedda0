#pragma once
// The backbone of a network: the few links that show its structure. Everything linked with
// everything shows nothing.

#include "map/graph.h"

namespace pelk {

/// Returns the graph with fewer links and the same people. It keeps the links that the disparity
/// filter finds significant for one of their ends (Serrano, Boguñá and Vespignani, "Extracting the
/// multiscale backbone of complex weighted networks", PNAS 106(16), 2009), and the strongest link
/// of each person, because the filter alone leaves people with few e-mails without any. Of equally
/// strong links, the one to the person with the most e-mails counts as the strongest, then the one
/// to the smallest number. `significance` is the chance below which a link counts as more than
/// random.
Graph backboneOf(const Graph& graph, double significance);

/// Returns the backbone at the significance 0.05, or at a higher one if it would have fewer than
/// three links for two people: a small network can show more.
Graph backboneOf(const Graph& graph);

}  // namespace pelk
