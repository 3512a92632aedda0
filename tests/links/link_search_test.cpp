#include "links/link_search.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "tests/links/chains.h"
#include "tests/links/dense_search.h"

namespace pelk {
namespace {

/// Few distinct weights give many chains of equal cost; halves round either way; other weights cost
/// about as much as `kNoLink`, alone or in sum; some are nonsense.
const std::vector<std::vector<const char*>> kWeights{
    {"1"},
    {"1", "2"},
    {"1", "2", "3", "4", "5", "6", "7", "8", "9"},
    {"2.5", "3.5", "3.4", "2.6", "0.5", "0"},
    {"1", "2", "3", "99999", "100000", "100001"},
    {"100000", "50001", "50000", "50002", "66667", "66668", "66669"},
    {"0", "-3", "-99990", "9", "-99991", "many"},
    {"1000000000000", "999999999999", "-5000000000", "4294967297", "1"}};

struct RandomGraph {
    explicit RandomGraph(unsigned seed) : random(seed) {
        contacts = seed % 8 < 3 ? static_cast<int>(seed % 8) + 1 : upTo(26) + 4;
        const int counts[] = {contacts / 2, 2 * contacts, upTo(300)};
        const auto& weights = kWeights[upTo(7)];
        // Contacts with the lowest and highest numbers may have no relations.
        const int first = 1 + upTo(contacts / 3);
        const int span = std::max(0, contacts - upTo(contacts / 3) - first);
        for (int left = counts[upTo(2)]; left > 0; --left)
            relations.push_back({first + upTo(span), first + upTo(span),
                                 weights[upTo(static_cast<int>(weights.size()) - 1)]});
    }
    int upTo(int most) { return static_cast<int>(random() % (static_cast<unsigned>(most) + 1)); }
    std::vector<int> contactsInAnyOrder() {
        std::vector<int> ids(static_cast<std::size_t>(contacts));
        std::iota(ids.begin(), ids.end(), 1);
        std::shuffle(ids.begin(), ids.end(), random);
        return ids;
    }

    std::mt19937 random;
    int contacts = 0;
    std::vector<RelationText> relations;
};

TEST(LinkSearch, findsTheChainsOfTheDenseSearch) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        RandomGraph graph(seed);
        const auto database = databaseOf(graph.contacts, graph.relations);
        DenseSearch dense(*database);
        LinkSearch search(*database);
        for (const int source : graph.contactsInAnyOrder()) {
            dense.search(source);
            for (const int target : graph.contactsInAnyOrder())
                ASSERT_EQ(textOf(search.find(source, target)), textOf(dense.chainTo(target)))
                    << "seed " << seed << ", from " << source << " to " << target;
        }
    }
}

TEST(LinkSearch, handlesWeightsAndCountersOfAnySize) {
    const auto extremes = databaseOf(
        40000, {{1, 2, "99999999999999999999"}, {2, 3, "-99999999999999999999"}, {2, 32767, "1"}});
    EXPECT_EQ(textOf(LinkSearch(*extremes).find(2, 1)), "1: 2 1");
    EXPECT_EQ(textOf(LinkSearch(*extremes).find(2, 3)), "none");
    EXPECT_EQ(textOf(LinkSearch(*extremes).find(2, 32767)), "none");
    // The contacts up to 40000 are unreachable and numbered above both candidates, so the tie goes
    // to the lower number.
    const auto tie =
        databaseOf(40000, {{1, 5, "1"}, {1, 32767, "1"}, {5, 9, "1"}, {9, 32767, "1"}});
    EXPECT_EQ(textOf(LinkSearch(*tie).find(1, 9)), "2: 1 5 9");
}

TEST(LinkSearch, refusesContactsOutOfRange) {
    const auto database = databaseOf(2, {{1, 2, "1"}});
    LinkSearch search(*database);
    for (const auto& [source, target] : {std::pair(0, 1), {3, 1}, {1, -1}, {2, 3}, {3, 3}})
        EXPECT_THROW(search.find(source, target), Error) << source << " " << target;
    EXPECT_EQ(textOf(search.find(1, 2)), "1: 1 2");
    for (const int contacts : {0, -5})
        EXPECT_THROW(LinkSearch(*databaseOf(contacts, {})).find(1, 1), Error);
    for (const int stranger : {3, 0, -1, 40000})
        for (const RelationText& relation : {RelationText{2, stranger, "1"}, {stranger, 2, "1"}})
            EXPECT_THROW(LinkSearch(*databaseOf(2, {{1, 2, "1"}, relation})).find(1, 2), Error);
    database->addMailBetween(2, 3);
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_THROW(search.find(1, 2), Error);
}

}  // namespace
}  // namespace pelk
