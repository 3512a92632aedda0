#include "map/backbone.h"

#include <span>
#include <tuple>
#include <vector>

#include "map/rows.h"

namespace pelk {
namespace {

/// By multiplication, because the libraries' `pow` differ in the last bit.
double power(double base, std::size_t exponent) {
    double result = 1;
    for (; exponent > 0; exponent /= 2, base *= base)
        if (exponent % 2 == 1)
            result *= base;
    return result;
}

/// Returns the probability that one of `links` random shares of a person's e-mails is as large.
double chanceOf(double share, std::size_t links) {
    return links < 2 ? 1 : power(1 - share, links - 1);
}

const Neighbour& strongestOf(const Graph& graph, std::span<const Neighbour> neighbours) {
    const Neighbour* best = &neighbours.front();
    const auto rank = [&graph](const Neighbour& neighbour) {
        return std::tuple(neighbour.weight, graph.people[neighbour.person].mails);
    };
    for (const Neighbour& neighbour : neighbours)
        if (rank(neighbour) > rank(*best))
            best = &neighbour;
    return *best;
}

}  // namespace

Graph backboneOf(const Graph& graph, double significance) {
    const Rows rows(graph);
    std::vector<bool> kept(graph.links.size());
    for (std::size_t person = 0; person < rows.size(); ++person) {
        const std::span<const Neighbour> neighbours = rows.of(person);
        if (neighbours.empty())
            continue;
        kept[strongestOf(graph, neighbours).link] = true;
        for (const Neighbour& neighbour : neighbours)
            if (chanceOf(neighbour.weight / graph.people[person].mails, neighbours.size()) <
                significance)
                kept[neighbour.link] = true;
    }
    Graph backbone{graph.people, {}};
    for (std::size_t link = 0; link < kept.size(); ++link)
        if (kept[link])
            backbone.links.push_back(graph.links[link]);
    return backbone;
}

Graph backboneOf(const Graph& graph) {
    for (const double significance : {0.05, 0.1, 0.2, 0.4}) {
        Graph backbone = backboneOf(graph, significance);
        if (2 * backbone.links.size() >= 3 * graph.people.size())
            return backbone;
    }
    return graph;
}

}  // namespace pelk
