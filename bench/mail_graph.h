#pragma once
// A synthetic graph of contacts and relations, the same on every run.

#include <memory>
#include <utility>
#include <vector>

#include "db/database.h"

namespace pelk {

struct MailGraph {
    int contacts = 0;
    std::vector<Relation> relations;
    /// The cost of each relation in a chain.
    std::vector<int> costs;
};

/// The distribution of the relations' weights.
enum class Weights {
    /// As in mail: most weights are 1, a few are thousands.
    Mail,
    /// Uniform from 1 to 100. The cheapest chain then makes long detours, so a search visits far
    /// more contacts before it ends.
    Even
};

/// Returns a scale-free graph by preferential attachment (Barabási and Albert, "Emergence of
/// scaling in random networks", Science 286, 1999): each new contact is related to six earlier
/// ones, chosen in proportion to their number of relations.
MailGraph makeMailGraph(int contacts, Weights weights);

/// Returns the graph as a database. Every `stride`-th contact has an address in source.example, and
/// the contact after it has one in target.example.
std::unique_ptr<Database> makeDatabase(const MailGraph& graph, int stride);

/// Returns random pairs of two different contacts.
std::vector<std::pair<int, int>> makePairs(int contacts, int count);

}  // namespace pelk
