#include "bench/network.h"

#include <algorithm>
#include <set>
#include <utility>

#include "bench/mail_graph.h"
#include "bench/random.h"

#ifdef PELK_BENCH_IGRAPH
#include <igraph/igraph.h>
#endif
#ifdef PELK_BENCH_GRAPHVIZ
#include <graphviz/gvc.h>

#endif

namespace pelk {
namespace {

constexpr std::size_t kGroup = 40;
constexpr std::size_t kLinks = 6;
constexpr double kInside = 0.8;

}  // namespace

Graph makeGroupedNetwork(std::size_t people) {
    Random random;
    Graph graph;
    graph.people.resize(people);
    const std::size_t groups = std::max<std::size_t>(people / kGroup, 3);
    // Each list names a person once for each link, so that a draw prefers those with many.
    std::vector<std::uint32_t> everybody{0};
    std::vector<std::vector<std::uint32_t>> members(groups);
    members[0].push_back(0);
    for (std::uint32_t person = 1; person < people; ++person) {
        std::vector<std::uint32_t>& own = members[person % groups];
        std::set<std::uint32_t> others;
        for (std::size_t draw = 0; draw < kLinks; ++draw) {
            const bool inside = !own.empty() && random.chance(kInside);
            const std::vector<std::uint32_t>& from = inside ? own : everybody;
            others.insert(from[random.below(from.size())]);
        }
        own.push_back(person);
        everybody.push_back(person);
        for (const std::uint32_t other : others) {
            const double weight = std::min(5000.0, 1 / random.fraction());
            graph.links.push_back({other, person, std::floor(weight)});
            members[other % groups].push_back(other);
            everybody.push_back(other);
        }
    }
    countMails(graph);
    return graph;
}

#ifdef PELK_BENCH_IGRAPH

std::optional<Groups> igraphGroups(const Graph& graph) {
    igraph_vector_int_t ends;
    igraph_vector_t weights;
    igraph_vector_int_t membership;
    const auto links = static_cast<igraph_integer_t>(graph.links.size());
    igraph_vector_int_init(&ends, 2 * links);
    igraph_vector_init(&weights, links);
    igraph_vector_int_init(&membership, 0);
    for (igraph_integer_t at = 0; at < links; ++at) {
        const GraphLink& link = graph.links[static_cast<std::size_t>(at)];
        VECTOR(ends)[2 * at] = link.from;
        VECTOR(ends)[2 * at + 1] = link.to;
        VECTOR(weights)[at] = link.weight;
    }
    igraph_t network;
    igraph_create(&network, &ends, static_cast<igraph_integer_t>(graph.people.size()),
                  IGRAPH_UNDIRECTED);
    igraph_community_multilevel(&network, &weights, 1, &membership, nullptr, nullptr);
    Groups groups;
    for (igraph_integer_t at = 0; at < igraph_vector_int_size(&membership); ++at)
        groups.push_back(static_cast<std::uint32_t>(VECTOR(membership)[at]));
    igraph_destroy(&network);
    igraph_vector_int_destroy(&membership);
    igraph_vector_destroy(&weights);
    igraph_vector_int_destroy(&ends);
    return groups;
}

#else

std::optional<Groups> igraphGroups(const Graph&) {
    return std::nullopt;
}

#endif

#ifdef PELK_BENCH_GRAPHVIZ

std::optional<Points> sfdpLayout(const Graph& graph) {
    static GVC_t* const context = gvContext();
    Agraph_t* const network = agopen(const_cast<char*>("g"), Agundirected, nullptr);
    const auto set = [network](const char* name, const char* value) {
        std::string empty;
        agsafeset(network, const_cast<char*>(name), const_cast<char*>(value), empty.data());
    };
    // Only the layout counts: neither the removal of overlaps nor the lines.
    set("overlap", "true");
    set("splines", "");
    std::vector<Agnode_t*> nodes;
    for (std::size_t person = 0; person < graph.people.size(); ++person)
        nodes.push_back(agnode(network, std::to_string(person).data(), 1));
    for (const GraphLink& link : graph.links)
        agedge(network, nodes[link.from], nodes[link.to], nullptr, 1);
    gvLayout(context, network, "sfdp");
    Points points;
    for (Agnode_t* const node : nodes)
        points.push_back({ND_coord(node).x, ND_coord(node).y});
    gvFreeLayout(context, network);
    agclose(network);
    return points;
}

#else

std::optional<Points> sfdpLayout(const Graph&) {
    return std::nullopt;
}

#endif

}  // namespace pelk
