#pragma once
// A made-up mailbox: who is related to whom, the same on every run.

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

/// How often the relations of a weight occur.
enum class Weights {
    /// The rarer the stronger, as in mail: most are 1, the strongest are thousands.
    Mail,
    /// All from 1 to 100 alike. The cheapest chain makes long detours then, and a search sees far
    /// more contacts before it is sure.
    Even
};

/// Contacts who know few and a few who know many: each newcomer is related to six who were there
/// before, the likelier the more these know already.
MailGraph makeMailGraph(int contacts, Weights weights);

/// The graph as a database. Every `stride`-th contact has an address in source.example, and the
/// ones after them have one in target.example.
std::unique_ptr<Database> makeDatabase(const MailGraph& graph, int stride);

/// Pairs of two different contacts.
std::vector<std::pair<int, int>> makePairs(int contacts, int count);

}  // namespace pelk
