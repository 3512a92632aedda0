#pragma once
// The reference search, which defines the best chain: Dijkstra's algorithm over a full cost matrix,
// in quadratic time and memory. `LinkSearch` must return exactly the same chains.

#include <cstdint>
#include <optional>
#include <vector>

#include "db/database.h"
#include "links/link_search.h"

namespace pelk {

template <typename Cost = std::int64_t>
class DenseSearch {
 public:
    /// Reads the document into the matrix. Requires: each relation joins numbers of contacts.
    explicit DenseSearch(const Database& database)
        : n_(static_cast<int>(database.totalContacts())),
          width_(static_cast<std::size_t>(n_) + 1),
          cost_(width_ * width_, kNone) {
        std::int64_t maxWeight = 0;
        for (const Relation& relation : database.relations())
            if (relation.weight > static_cast<double>(maxWeight))
                maxWeight = roundToInteger(relation.weight);
        for (const Relation& relation : database.relations())
            cost(relation.part1, relation.part2) = cost(relation.part2, relation.part1) =
                static_cast<Cost>(maxWeight + 1 - roundToInteger(relation.weight));
    }

    /// Finds the chains from the source to all contacts. The last unvisited contact is skipped, as
    /// no distance is left that it could change.
    void search(int source) {
        source_ = source;
        prev_.assign(width_, 0);
        visited_.assign(width_, false);
        dist_.assign(cost_.begin() + source * width_, cost_.begin() + (source + 1) * width_);
        visited_[source] = true;
        dist_[source] = 0;
        for (int pass = 1; pass <= n_ - 2; ++pass) {
            int u = 0;
            for (int i = 1; i <= n_; ++i)
                if (!visited_[i])
                    u = i;
            for (int i = 1; i <= n_; ++i)
                if (!visited_[i] && dist_[i] < dist_[u])
                    u = i;
            visited_[u] = true;
            for (int v = 1; v <= n_; ++v)
                if (!visited_[v] && dist_[u] + cost(u, v) < dist_[v]) {
                    dist_[v] = dist_[u] + cost(u, v);
                    prev_[v] = u;
                }
        }
    }

    std::optional<LinkChain> chainTo(int target) const {
        if (dist_[target] >= kNone)
            return std::nullopt;
        LinkChain chain{{}, static_cast<int>(dist_[target])};
        for (int x = target; x != 0; x = prev_[x])
            chain.ids.insert(chain.ids.begin(), x);
        chain.ids.insert(chain.ids.begin(), source_);
        return chain;
    }

 private:
    /// A cost of this or more is no link. Repeats the number, so that a wrong `kNoLink` shows.
    static constexpr int kNone = 100000;

    Cost& cost(int from, int to) { return cost_[from * width_ + to]; }

    int n_;
    std::size_t width_;
    std::vector<Cost> cost_;
    std::vector<bool> visited_;
    std::vector<Cost> dist_;
    std::vector<int> prev_;
    int source_ = 0;
};

}  // namespace pelk
