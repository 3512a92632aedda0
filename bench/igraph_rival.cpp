#include "bench/rival.h"

#ifdef PELK_BENCH_IGRAPH
#include <igraph/igraph.h>
#endif

namespace pelk {

#ifdef PELK_BENCH_IGRAPH

namespace {

class IgraphRival : public Rival {
 public:
    explicit IgraphRival(const MailGraph& graph) {
        const auto relations = static_cast<igraph_integer_t>(graph.relations.size());
        igraph_vector_int_t ends;
        igraph_vector_int_init(&ends, 2 * relations);
        igraph_vector_init(&costs_, relations);
        for (igraph_integer_t i = 0; i < relations; ++i) {
            VECTOR(ends)[2 * i] = graph.relations[static_cast<std::size_t>(i)].part1;
            VECTOR(ends)[2 * i + 1] = graph.relations[static_cast<std::size_t>(i)].part2;
            VECTOR(costs_)[i] = graph.costs[static_cast<std::size_t>(i)];
        }
        igraph_create(&graph_, &ends, graph.contacts + 1, IGRAPH_UNDIRECTED);
        igraph_vector_int_destroy(&ends);
        igraph_vector_int_init(&chain_, 0);
    }
    ~IgraphRival() override {
        igraph_vector_int_destroy(&chain_);
        igraph_vector_destroy(&costs_);
        igraph_destroy(&graph_);
    }
    IgraphRival(const IgraphRival&) = delete;
    IgraphRival& operator=(const IgraphRival&) = delete;

    int search(int source, int target) override {
        igraph_get_shortest_path_dijkstra(&graph_, nullptr, &chain_, source, target, &costs_,
                                          IGRAPH_ALL);
        double cost = 0;
        for (igraph_integer_t i = 0; i < igraph_vector_int_size(&chain_); ++i)
            cost += VECTOR(costs_)[VECTOR(chain_)[i]];
        return static_cast<int>(cost);
    }

 private:
    igraph_t graph_;
    igraph_vector_t costs_;
    /// The relations of the last chain found.
    igraph_vector_int_t chain_;
};

}  // namespace

std::unique_ptr<Rival> makeIgraphRival(const MailGraph& graph) {
    return std::make_unique<IgraphRival>(graph);
}

#else

std::unique_ptr<Rival> makeIgraphRival(const MailGraph&) {
    return nullptr;
}

#endif

}  // namespace pelk
