// Compares the ranking of chains with an enumeration of all of them.

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "links/link_search.h"
#include "tests/links/chains.h"

namespace pelk {
namespace {

/// Ties in cost, and costs whose sums reach `kNoLink`.
const std::vector<std::vector<std::string>> kWeights{
    {"1"}, {"1", "2", "3"}, {"1", "5", "9", "17", "40"}, {"100000", "66668", "50001", "1"}};

struct SmallGraph {
    explicit SmallGraph(unsigned seed) : random(seed), contacts(upTo(5) + 2) {
        const auto& weights = kWeights[seed % kWeights.size()];
        for (int left = upTo(16); left > 0; --left)
            relations.push_back({1 + upTo(contacts - 1), 1 + upTo(contacts - 1),
                                 weights[upTo(static_cast<int>(weights.size()) - 1)]});
        for (int id = 1; id <= contacts; ++id)
            if (upTo(5) == 0)
                leftOut.push_back(id);
    }
    int upTo(int most) { return static_cast<int>(random() % (static_cast<unsigned>(most) + 1)); }
    std::vector<RelationText> relationsLeft() const {
        std::vector<RelationText> left;
        for (const RelationText& relation : relations)
            if (!contains(leftOut, relation.part1) && !contains(leftOut, relation.part2))
                left.push_back(relation);
        // The strongest relation decides about all costs.
        left.insert(left.begin(), {contacts + 1, contacts + 1, strongest()});
        return left;
    }
    std::string strongest() const {
        std::string most = "0";
        for (const RelationText& relation : relations)
            if (std::stoi(relation.weight) > std::stoi(most))
                most = relation.weight;
        return most;
    }
    static bool contains(const std::vector<int>& ids, int id) {
        return std::find(ids.begin(), ids.end(), id) != ids.end();
    }

    std::mt19937 random;
    int contacts;
    std::vector<RelationText> relations;
    std::vector<int> leftOut;
};

class AllChains {
 public:
    AllChains(const SmallGraph& graph, int source, int target) : target_(target) {
        const int dearest = std::stoi(graph.strongest()) + 1;
        for (const auto& [part1, part2, weight] : graph.relationsLeft())
            costs_[{part1, part2}] = costs_[{part2, part1}] = dearest - std::stoi(weight);
        extend({{source}, 0});
    }
    std::vector<int> costs() const {
        std::vector<int> all;
        for (const auto& [ids, cost] : found)
            all.push_back(cost);
        std::sort(all.begin(), all.end());
        return all;
    }
    std::map<std::vector<int>, int> found;

 private:
    void extend(const LinkChain& chain) {
        if (chain.ids.back() == target_ && chain.cost < 100000)
            found[chain.ids] = chain.cost;
        if (chain.ids.back() == target_)
            return;
        for (const auto& [pair, cost] : costs_)
            if (pair.first == chain.ids.back() && !SmallGraph::contains(chain.ids, pair.second)) {
                LinkChain longer{chain.ids, chain.cost + cost};
                longer.ids.push_back(pair.second);
                extend(longer);
            }
    }

    int target_;
    std::map<std::pair<int, int>, int> costs_;
};

TEST(RankedChains, areTheCheapestOfAllChains) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SmallGraph graph(seed);
        const auto database = databaseOf(graph.contacts + 1, graph.relations);
        const auto rest = databaseOf(graph.contacts + 1, graph.relationsLeft());
        const int source = 1 + graph.upTo(graph.contacts - 1);
        const int target = 1 + (source + graph.upTo(graph.contacts - 2)) % graph.contacts;
        const AllChains all(graph, source, target);
        const std::vector<int> costs = all.costs();
        LinkSearch search(*database, graph.leftOut);
        for (const std::size_t count : {std::size_t{1}, std::size_t{4}, std::size_t{1000}}) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " + std::to_string(count) + " chains");
            const std::vector<LinkChain> chains = search.findSeveral(source, target, count);
            ASSERT_EQ(chains.size(), std::min(count, costs.size()));
            std::set<std::vector<int>> distinct;
            for (std::size_t rank = 0; rank < chains.size(); ++rank) {
                ASSERT_EQ(chains[rank].cost, costs[rank]);
                ASSERT_TRUE(all.found.contains(chains[rank].ids)) << textOf(chains[rank]);
                ASSERT_EQ(all.found.at(chains[rank].ids), chains[rank].cost);
                distinct.insert(chains[rank].ids);
            }
            ASSERT_EQ(distinct.size(), chains.size());
            const auto best = LinkSearch(*rest).find(source, target);
            ASSERT_EQ(textOf(chains.empty() ? std::nullopt : std::optional(chains[0])),
                      textOf(best));
        }
    }
}

TEST(RankedChains, haveOneChainFromAContactToItself) {
    const auto database = databaseOf(2, {{1, 2, "1"}});
    EXPECT_EQ(LinkSearch(*database).findSeveral(1, 1, 5).size(), 1U);
    EXPECT_THROW(LinkSearch(*database).findSeveral(1, 3, 5), Error);
}

}  // namespace
}  // namespace pelk
