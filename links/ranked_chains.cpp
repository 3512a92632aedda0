// Yen, "Finding the K shortest loopless paths in a network", Management Science 17(11), 1971,
// https://doi.org/10.1287/mnsc.17.11.712. Each chain found is left at each of its contacts, towards
// a neighbour to which no chain with the same beginning goes on; the cheapest of these detours is
// the next chain. A detour itself is left only where it begins or later, because the chain it comes
// from was left at the earlier contacts already (Lawler, Management Science 18(7), 1972).
//
// Detours are found by A*: the cost from each contact to the target in the whole graph is a lower
// bound of the cost without some contacts and edges, so that a search goes straight to the target
// wherever the best chains are still allowed.

#include "links/ranked_chains.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "links/bucket_queue.h"

namespace pelk {
namespace {

/// Marks contacts that a detour must not meet: no chain reaches them at a smaller cost.
constexpr int kClosed = -1;

struct Detour {
    LinkChain chain;
    /// The position of the contact at which the chain leaves the one it comes from.
    std::size_t start = 0;

    friend bool operator<(const Detour& left, const Detour& right) {
        return std::tie(left.chain.cost, left.chain.ids) <
               std::tie(right.chain.cost, right.chain.ids);
    }
};

class ChainRanking {
 public:
    ChainRanking(const LinkGraph& graph, int target) : graph_(graph), target_(target) {
        measureCostsToTarget();
    }

    std::vector<LinkChain> rank(const LinkChain& best, std::size_t count) {
        detours_.insert({best, 0});
        while (found_.size() < count && !detours_.empty()) {
            const Detour next = detours_.extract(detours_.begin()).value();
            found_.push_back(next.chain);
            if (found_.size() < count)
                leave(next);
        }
        return std::move(found_);
    }

 private:
    static std::size_t at(int id) { return static_cast<std::size_t>(id); }

    /// Dijkstra's algorithm from the target, which the edges allow because they go both ways.
    void measureCostsToTarget() {
        toTarget_.assign(at(graph_.contacts()) + 1, kNoLink);
        toTarget_[at(target_)] = 0;
        queue_.add(target_, 0);
        for (int cost = 0; cost < queue_.end(); ++cost)
            queue_.takeAll(cost, [this, cost](int contact) {
                if (toTarget_[at(contact)] < cost)
                    return;
                for (const LinkEdge edge : graph_.edgesOf(contact))
                    reach(toTarget_, edge.to(), cost + edge.cost(), 0);
            });
    }

    /// Notes a smaller cost of a contact and puts the contact into the queue.
    bool reach(std::vector<int>& costs, int contact, int cost, int bound) {
        if (cost >= costs[at(contact)] || cost + bound >= kNoLink)
            return false;
        costs[at(contact)] = cost;
        queue_.add(contact, cost + bound);
        return true;
    }

    /// Adds the best detour from each contact of the chain from its own start on.
    void leave(const Detour& detour) {
        const std::vector<int>& ids = detour.chain.ids;
        int rootCost = 0;
        for (std::size_t start = 0; start + 1 < ids.size(); ++start) {
            if (start >= detour.start)
                if (std::optional<LinkChain> chain = bestDetour(ids, start, rootCost))
                    detours_.insert({std::move(*chain), start});
            rootCost += edgeCost(ids[start], ids[start + 1]);
        }
    }

    int edgeCost(int from, int to) const {
        const auto edges = graph_.edgesOf(from);
        return std::find_if(edges.begin(), edges.end(),
                            [to](LinkEdge edge) { return edge.to() == to; })
            ->cost();
    }

    /// Returns the cheapest chain that has the contacts of `ids` up to the position `start`, which
    /// cost `rootCost`, and then goes on differently from all chains found.
    std::optional<LinkChain> bestDetour(const std::vector<int>& ids, std::size_t start,
                                        int rootCost) {
        costs_.assign(toTarget_.size(), kNoLink);
        previous_.assign(toTarget_.size(), 0);
        for (std::size_t step = 0; step <= start; ++step)
            costs_[at(ids[step])] = kClosed;
        queue_.clear();
        const std::vector<int> taken = nextOfThoseThatBegin(ids, start);
        for (const LinkEdge edge : graph_.edgesOf(ids[start]))
            if (std::find(taken.begin(), taken.end(), edge.to()) == taken.end())
                relax(ids[start], edge, rootCost);
        if (!reachesTarget())
            return std::nullopt;
        LinkChain chain{{ids.begin(), ids.begin() + static_cast<std::ptrdiff_t>(start) + 1},
                        costs_[at(target_)]};
        const std::size_t root = chain.ids.size();
        for (int id = target_; id != ids[start]; id = previous_[at(id)])
            chain.ids.push_back(id);
        std::reverse(chain.ids.begin() + static_cast<std::ptrdiff_t>(root), chain.ids.end());
        return chain;
    }

    /// Returns where the chains found go on that begin with the contacts up to `start`.
    std::vector<int> nextOfThoseThatBegin(const std::vector<int>& ids, std::size_t start) const {
        std::vector<int> next;
        for (const LinkChain& chain : found_)
            if (chain.ids.size() > start + 1 &&
                std::equal(ids.begin(), ids.begin() + static_cast<std::ptrdiff_t>(start) + 1,
                           chain.ids.begin()))
                next.push_back(chain.ids[start + 1]);
        return next;
    }

    void relax(int from, LinkEdge edge, int cost) {
        if (reach(costs_, edge.to(), cost + edge.cost(), toTarget_[at(edge.to())]))
            previous_[at(edge.to())] = from;
    }

    /// Contacts leave the queue by the cost of the best chain that they may be on. An edge that
    /// loses nothing keeps that cost, so a bucket may fill again while it is emptied.
    bool reachesTarget() {
        for (int bound = 0; bound < queue_.end(); ++bound)
            while (queue_.hasAny(bound)) {
                if (costs_[at(target_)] == bound)
                    return true;
                queue_.takeAll(bound, [this, bound](int contact) {
                    const int cost = costs_[at(contact)];
                    if (cost + toTarget_[at(contact)] < bound)
                        return;
                    for (const LinkEdge edge : graph_.edgesOf(contact))
                        relax(contact, edge, cost);
                });
            }
        return false;
    }

    const LinkGraph& graph_;
    int target_;
    /// By id: the cost of the best chain to the target in the whole graph; `kNoLink` if none.
    std::vector<int> toTarget_;
    std::vector<LinkChain> found_;
    std::set<Detour> detours_;

    /// Of the current detour, by id: the cost from the source, and the contact before.
    std::vector<int> costs_;
    std::vector<int> previous_;
    BucketQueue queue_;
};

}  // namespace

std::vector<LinkChain> rankChains(const LinkGraph& graph, const LinkChain& best,
                                  std::size_t count) {
    if (best.ids.front() == best.ids.back())
        return {best};
    return ChainRanking(graph, best.ids.back()).rank(best, count);
}

}  // namespace pelk
