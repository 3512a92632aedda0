#include "map/groups.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

#include "map/rows.h"

namespace pelk {
namespace {

/// Gains below this are the noise of floating-point sums; accepting them might never end.
constexpr double kLeastGain = 1e-9;

/// One level of the method: its nodes are the people, or the groups of the level before.
class LouvainLevel {
 public:
    LouvainLevel(std::size_t nodes, std::vector<GraphLink> links)
        : links_(std::move(links)),
          rows_(nodes, links_),
          group_(nodes),
          degree_(nodes),
          weightTo_(nodes) {
        std::iota(group_.begin(), group_.end(), 0);
        for (std::size_t node = 0; node < nodes; ++node)
            for (const Neighbour& neighbour : rows_.of(node))
                degree_[node] += neighbour.weight;
        total_ = degree_;
        twiceWeight_ = std::accumulate(degree_.begin(), degree_.end(), 0.0);
    }

    /// Moves nodes to the best group of a neighbour until no move gains anything. Returns the
    /// group of each node, numbered from 0 without gaps.
    Groups run() {
        while (moveAll()) {
        }
        return renumbered();
    }

    /// Returns the links between groups; the links inside a group become one with itself.
    std::vector<GraphLink> linksBetween(const Groups& groups) const {
        std::vector<GraphLink> merged;
        for (GraphLink link : links_) {
            std::tie(link.from, link.to) = std::minmax({groups[link.from], groups[link.to]});
            merged.push_back(link);
        }
        return added(std::move(merged));
    }

 private:
    bool moveAll() {
        bool moved = false;
        for (std::size_t node = 0; node < group_.size(); ++node)
            moved = move(node) || moved;
        return moved;
    }

    bool move(std::size_t node) {
        const std::uint32_t own = group_[node];
        total_[own] -= degree_[node];
        sumWeights(node);
        std::uint32_t best = own;
        double bestGain = gainOf(node, own) + kLeastGain;
        for (const std::uint32_t group : touched_)
            if (const double gain = gainOf(node, group); gain > bestGain) {
                best = group;
                bestGain = gain;
            }
        for (const std::uint32_t group : touched_)
            weightTo_[group] = 0;
        total_[best] += degree_[node];
        group_[node] = best;
        return best != own;
    }

    /// Adds up the weights of the node's links to each group.
    void sumWeights(std::size_t node) {
        touched_.clear();
        for (const Neighbour& neighbour : rows_.of(node)) {
            if (neighbour.person == node)
                continue;
            double& weight = weightTo_[group_[neighbour.person]];
            if (weight == 0)
                touched_.push_back(group_[neighbour.person]);
            weight += neighbour.weight;
        }
    }

    double gainOf(std::size_t node, std::uint32_t group) const {
        return weightTo_[group] - degree_[node] * total_[group] / twiceWeight_;
    }

    Groups renumbered() const {
        constexpr std::uint32_t none = UINT32_MAX;
        std::vector<std::uint32_t> number(group_.size(), none);
        std::uint32_t next = 0;
        Groups groups;
        for (const std::uint32_t group : group_) {
            if (number[group] == none)
                number[group] = next++;
            groups.push_back(number[group]);
        }
        return groups;
    }

    static std::vector<GraphLink> added(std::vector<GraphLink> links) {
        std::stable_sort(links.begin(), links.end(), [](const GraphLink& a, const GraphLink& b) {
            return std::tie(a.from, a.to) < std::tie(b.from, b.to);
        });
        std::vector<GraphLink> sums;
        for (const GraphLink& link : links)
            if (!sums.empty() && sums.back().from == link.from && sums.back().to == link.to)
                sums.back().weight += link.weight;
            else
                sums.push_back(link);
        return sums;
    }

    std::vector<GraphLink> links_;
    Rows rows_;
    Groups group_;
    /// By node: the weights of its links. By group: those of its nodes.
    std::vector<double> degree_;
    std::vector<double> total_;
    double twiceWeight_ = 0;
    /// By group: the weights of the current node's links to it; 0 outside of `move`.
    std::vector<double> weightTo_;
    std::vector<std::uint32_t> touched_;
};

std::size_t countOf(const Groups& groups) {
    return groups.empty() ? 0 : *std::max_element(groups.begin(), groups.end()) + 1;
}

/// Numbers the groups by descending size. Equally large ones keep their order.
Groups largestFirst(Groups groups) {
    const std::vector<std::size_t> sizes = groupSizes(groups);
    std::vector<std::uint32_t> order(sizes.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&sizes](std::uint32_t a, std::uint32_t b) { return sizes[a] > sizes[b]; });
    std::vector<std::uint32_t> number(sizes.size());
    for (std::uint32_t rank = 0; rank < order.size(); ++rank)
        number[order[rank]] = rank;
    for (std::uint32_t& group : groups)
        group = number[group];
    return groups;
}

}  // namespace

Groups findGroups(const Graph& graph) {
    Groups groups(graph.people.size());
    std::iota(groups.begin(), groups.end(), 0);
    std::vector<GraphLink> links = graph.links;
    for (std::size_t nodes = groups.size();;) {
        LouvainLevel level(nodes, std::move(links));
        const Groups next = level.run();
        for (std::uint32_t& group : groups)
            group = next[group];
        if (countOf(next) == nodes)
            return largestFirst(std::move(groups));
        nodes = countOf(next);
        links = level.linksBetween(next);
    }
}

double modularityOf(const Graph& graph, const Groups& groups) {
    std::vector<double> degree(countOf(groups));
    double inside = 0;
    double all = 0;
    for (const GraphLink& link : graph.links) {
        degree[groups[link.from]] += link.weight;
        degree[groups[link.to]] += link.weight;
        all += link.weight;
        if (groups[link.from] == groups[link.to])
            inside += link.weight;
    }
    if (all == 0)
        return 0;
    double modularity = inside / all;
    for (const double sum : degree)
        modularity -= (sum / (2 * all)) * (sum / (2 * all));
    return modularity;
}

std::vector<std::size_t> groupSizes(const Groups& groups) {
    std::vector<std::size_t> sizes;
    for (const std::uint32_t group : groups)
        if (group != kNoGroup) {
            sizes.resize(std::max<std::size_t>(sizes.size(), group + 1));
            ++sizes[group];
        }
    return sizes;
}

}  // namespace pelk
