#pragma once
// The best chain of relations from one contact to another: the one whose costs have the least sum.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "db/database.h"
#include "links/bucket_queue.h"
#include "links/link_graph.h"

namespace pelk {

/// Messages: the target is the source; there is no chain.
inline constexpr const char* kSameContactMessage = "You cannot select this contact again!";
inline constexpr const char* kNoChainMessage = "Cannot find a path between those nodes!";

struct LinkChain {
    /// The contacts from the source to the target; twice the same id when both are one contact.
    std::vector<int> ids;
    int cost = 0;
};

/// Searches the current document. Graph and distances are cached until the document is edited, so
/// several targets of one source cost little more than the farthest one alone.
///
/// Not thread-safe: all calls on the thread that uses the database.
class LinkSearch {
 public:
    /// The database outlives the search. No chain meets the contacts in `without`: the search is
    /// that of a database in which they have no relations.
    explicit LinkSearch(const Database& database, std::vector<int> without = {})
        : database_(database), without_(std::move(without)) {}

    /// Returns the cheapest chain; nothing when every chain costs `kNoLink` or more. Throws `Error`
    /// when the document is damaged (see `LinkGraph`) or an id is not a number of a contact.
    ///
    /// Ties are broken from the target back to the source: the predecessor is the candidate nearest
    /// to the source. Among several at that distance it is the highest-numbered one if no contact
    /// numbered above it is farther away, otherwise the lowest-numbered one.
    std::optional<LinkChain> find(int source, int target);
    /// Returns the `count` cheapest chains, see `rankChains`. The first is that of `find`; there is
    /// none when `find` returns nothing. Throws as `find` does.
    std::vector<LinkChain> findSeveral(int source, int target, std::size_t count);

 private:
    void readGraph();
    void requireContact(int id) const;
    void start(int source);
    void settle(int target);
    void relaxEdgesOf(int contact);
    bool noneFartherAbove(int contact) const;
    int predecessorOf(int contact) const;
    int distanceOf(int id) const { return distances_[static_cast<std::size_t>(id)]; }

    const Database& database_;
    std::vector<int> without_;
    /// The revision of the document that `graph_` was read from.
    std::optional<std::uint64_t> revision_;
    LinkGraph graph_;

    /// 0 when no search has started on this graph.
    int source_ = 0;
    /// By id: the cost of the cheapest chain found so far; `kNoLink` if none.
    std::vector<int> distances_;
    BucketQueue queue_;
    /// All contacts nearer than this are settled. Distances up to and including this are final, as
    /// no edge costs less than 1.
    int frontier_ = 0;
};

}  // namespace pelk
