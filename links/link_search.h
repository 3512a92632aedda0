#pragma once
// The best chain of relations from one contact to another: the one whose costs have the least sum.

#include <cstdint>
#include <optional>
#include <vector>

#include "db/database.h"
#include "links/distance_queue.h"
#include "links/link_graph.h"

namespace pelk {

/// What the user is told who picks the source for the target, and when there is no chain.
inline constexpr const char* kSameContactMessage = "You cannot select this contact again!";
inline constexpr const char* kNoChainMessage = "Cannot find a path between those nodes!";

struct LinkChain {
    /// The source first, the target last. Twice the same contact when both are one.
    std::vector<int> ids;
    int cost = 0;
};

/// Searches the document as it stands at each search. What was read and found is kept for as long
/// as the document is not edited: targets of one source cost little more than the farthest alone.
class LinkSearch {
 public:
    /// The database outlives the search.
    explicit LinkSearch(const Database& database) : database_(database) {}

    /// The best chain; nothing when every one costs `kNoLink` or more. Throws `Error`, when the
    /// document is damaged (see `LinkGraph`) or either id is not one of its contacts' numbers.
    ///
    /// Of several chains of the same cost the choice is fixed: from the target back to the source,
    /// the contact before is the one nearest to the source. Of several at the same distance it is
    /// the lowest-numbered, or the highest-numbered if no contact with a higher number still is
    /// farther away.
    std::optional<LinkChain> find(int source, int target);

 private:
    void readGraph();
    void requireContact(int id) const;
    void start(int source);
    void searchUntilFinal(int target);
    void visit(int contact);
    bool noneFartherAbove(int contact) const;
    int predecessorOf(int contact) const;
    int distanceOf(int id) const { return distances_[static_cast<std::size_t>(id)]; }

    const Database& database_;
    /// Of the document that `graph_` holds.
    std::optional<std::uint64_t> revision_;
    LinkGraph graph_;

    /// 0 before the first search.
    int source_ = 0;
    /// By id: the cost of the best chain known so far, `kNoLink` without any.
    std::vector<int> distances_;
    DistanceQueue waiting_;
    /// All contacts nearer than this have been visited, so that every distance up to this is final:
    /// no relation costs less than 1.
    int reach_ = 0;
};

}  // namespace pelk
