#include "bench/rival.h"

#ifdef PELK_BENCH_BOOST
#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <boost/graph/dijkstra_shortest_paths_no_color_map.hpp>
#endif

namespace pelk {

#ifdef PELK_BENCH_BOOST

namespace {

struct Cost {
    int cost = 0;
};
using Graph = boost::compressed_sparse_row_graph<boost::directedS, boost::no_property, Cost>;

struct Found {};

/// Stops the search at the target.
struct EndAt : boost::default_dijkstra_visitor {
    explicit EndAt(Graph::vertex_descriptor contact) : target(contact) {}
    void examine_vertex(Graph::vertex_descriptor contact, const Graph&) const {
        if (contact == target)
            throw Found();
    }
    Graph::vertex_descriptor target;
};

class BoostRival : public Rival {
 public:
    explicit BoostRival(const MailGraph& graph)
        : graph_(build(graph)),
          distances_(boost::num_vertices(graph_)),
          predecessors_(boost::num_vertices(graph_)) {}

    int search(int source, int target) override {
        const auto indexes = get(boost::vertex_index, graph_);
        const auto targetVertex = static_cast<Graph::vertex_descriptor>(target);
        try {
            boost::dijkstra_shortest_paths_no_color_map(
                graph_, static_cast<Graph::vertex_descriptor>(source),
                boost::weight_map(get(&Cost::cost, graph_))
                    .distance_map(boost::make_iterator_property_map(distances_.begin(), indexes))
                    .predecessor_map(
                        boost::make_iterator_property_map(predecessors_.begin(), indexes))
                    .visitor(EndAt(targetVertex)));
        } catch (const Found&) {
        }
        return distances_[targetVertex];
    }

 private:
    static Graph build(const MailGraph& graph) {
        std::vector<std::pair<std::size_t, std::size_t>> edges;
        std::vector<Cost> costs;
        for (std::size_t i = 0; i < graph.relations.size(); ++i) {
            const auto [part1, part2] =
                std::pair(static_cast<std::size_t>(graph.relations[i].part1),
                          static_cast<std::size_t>(graph.relations[i].part2));
            edges.insert(edges.end(), {{part1, part2}, {part2, part1}});
            costs.insert(costs.end(), 2, Cost{graph.costs[i]});
        }
        return {boost::edges_are_unsorted_multi_pass, edges.begin(), edges.end(), costs.begin(),
                static_cast<std::size_t>(graph.contacts) + 1};
    }

    Graph graph_;
    std::vector<int> distances_;
    std::vector<Graph::vertex_descriptor> predecessors_;
};

}  // namespace

std::unique_ptr<Rival> makeBoostRival(const MailGraph& graph) {
    return std::make_unique<BoostRival>(graph);
}

#else

std::unique_ptr<Rival> makeBoostRival(const MailGraph&) {
    return nullptr;
}

#endif

}  // namespace pelk
