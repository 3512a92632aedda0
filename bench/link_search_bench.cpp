// Compares the link search with the shortest-path searches of graph libraries, and the search
// between two domains with one that builds a full cost matrix for each pair.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "bench/mail_graph.h"
#include "bench/measure.h"
#include "bench/rival.h"
#include "links/domain_search.h"
#include "links/link_search.h"
#include "tests/links/dense_search.h"

namespace pelk {
namespace {

constexpr int kSizes[] = {1000, 5000, 20000, kMaxContactId};
constexpr int kDomainSize = 20000;
constexpr int kPairs = 300;
/// Gives each of the two domains 100 of the 20000 contacts.
constexpr int kStride = 200;

std::size_t bytesInUse() {
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

struct Result {
    /// The time of one search.
    double milliseconds = 0;
    double megabytes = 0;
    std::vector<int> costs;
};

using Pairs = std::vector<std::pair<int, int>>;

template <typename Make, typename Search>
std::optional<Result> measure(const Pairs& pairs, const Make& make, const Search& search) {
    const std::size_t before = bytesInUse();
    const auto searcher = make();
    if (!searcher)
        return std::nullopt;
    Result result;
    search(*searcher, pairs.front());
    result.milliseconds = millisecondsOf([&] {
                              for (const std::pair<int, int>& pair : pairs)
                                  result.costs.push_back(search(*searcher, pair));
                          }) /
                          static_cast<double>(pairs.size());
    result.megabytes = static_cast<double>(bytesInUse() - before) / 1e6;
    return result;
}

int costOfChain(LinkSearch& search, const std::pair<int, int>& pair) {
    const std::optional<LinkChain> chain = search.find(pair.first, pair.second);
    return chain ? chain->cost : kNoLink;
}

void print(int contacts, const char* name, const std::optional<Result>& result, const Result& own) {
    if (!result) {
        std::printf("%8d  %-12s skipped: not installed\n", contacts, name);
        return;
    }
    if (result->costs != own.costs) {
        std::printf("%8d  %-12s finds other costs\n", contacts, name);
        std::exit(1);
    }
    std::printf("%8d  %-12s %10.4f %9.1f %11.2f %9.2f\n", contacts, name, result->milliseconds,
                result->milliseconds / own.milliseconds, result->megabytes,
                result->megabytes / own.megabytes);
}

/// Ranks the best ten chains of each pair, as the form does when it opens.
void printSeveral(int contacts, const Database& database, const Pairs& pairs) {
    double total = 0;
    double slowest = 0;
    for (const auto& [source, target] : pairs) {
        const double time = millisecondsOf([&, ends = std::pair(source, target)] {
            LinkSearch(database).findSeveral(ends.first, ends.second, 10);
        });
        total += time;
        slowest = std::max(slowest, time);
    }
    std::printf("%8d  %-12s %10.4f  for ten chains, %.1f at most, document read each time\n",
                contacts, "Pelk", total / kPairs, slowest);
}

void compareSearches(int contacts, Weights weights) {
    const MailGraph graph = makeMailGraph(contacts, weights);
    const std::unique_ptr<Database> database = makeDatabase(graph, kStride);
    const Pairs pairs = makePairs(contacts, kPairs);
    const Result own = *measure(
        pairs, [&] { return std::make_unique<LinkSearch>(*database); }, costOfChain);
    const auto searchRival = [](Rival& rival, const std::pair<int, int>& pair) {
        return rival.search(pair.first, pair.second);
    };
    print(contacts, "Pelk", own, own);
    print(contacts, "Boost.Graph",
          measure(
              pairs, [&] { return makeBoostRival(graph); }, searchRival),
          own);
    print(contacts, "igraph",
          measure(
              pairs, [&] { return makeIgraphRival(graph); }, searchRival),
          own);
    const double fresh = millisecondsOf([&] {
                             for (const std::pair<int, int>& pair : pairs) {
                                 LinkSearch search(*database);
                                 costOfChain(search, pair);
                             }
                         }) /
                         kPairs;
    std::printf("%8d  %-12s %10.4f  with the document read for each search\n", contacts, "Pelk",
                fresh);
    printSeveral(contacts, *database, pairs);
}

/// Never stops the search; edits the database before each pair if `edits`.
class Progress : public DomainSearchProgress {
 public:
    Progress(Database& database, bool edits) : database_(database), edits_(edits) {}

    void pairsCounted(std::size_t count) override { pairs = count; }
    void pairStarted(std::size_t) override {
        if (edits_)
            database_.setDate("2026-11-20T00:00:00");
    }
    bool stopsAfterChain() override { return false; }

    std::size_t pairs = 0;

 private:
    Database& database_;
    bool edits_;
};

double pairsPerSecond(Database& database, bool edits) {
    Progress progress(database, edits);
    const double milliseconds = millisecondsOf(
        [&] { findDomainLinks(database, "@source.example", "@target.example", progress); });
    return static_cast<double>(progress.pairs) * 1000 / milliseconds;
}

double densePairsPerSecond(const Database& database, int contacts) {
    const Pairs pairs = makePairs(contacts, 2);
    LinkSearch search(database);
    return static_cast<double>(pairs.size()) * 1000 / millisecondsOf([&] {
               for (const auto& [source, target] : pairs) {
                   DenseSearch<int> dense(database);
                   dense.search(source);
                   if (dense.chainTo(target)->ids != search.find(source, target)->ids)
                       std::exit(1);
               }
           });
}

void compareDomainSearches() {
    const std::unique_ptr<Database> database =
        makeDatabase(makeMailGraph(kDomainSize, Weights::Mail), kStride);
    const double own = pairsPerSecond(*database, false);
    const double edited = pairsPerSecond(*database, true);
    const double dense = densePairsPerSecond(*database, kDomainSize);
    std::printf("100 by 100 contacts of %d                 pairs/s  all pairs in s\n", kDomainSize);
    const auto line = [](const char* name, double rate) {
        std::printf("%-40s %10.1f %15.3f\n", name, rate, 1e4 / rate);
    };
    line("Pelk", own);
    line("Pelk, an edit before each pair", edited);
    line("full matrix for each pair (from 2 pairs)", dense);
}

}  // namespace
}  // namespace pelk

int main() {
    using pelk::Weights;
    for (const Weights weights : {Weights::Mail, Weights::Even}) {
        std::printf("%s: %d random pairs of each size, six relations a contact\n",
                    weights == Weights::Mail ? "Few strong relations" : "Weights of 1 to 100 alike",
                    pelk::kPairs);
        std::printf("contacts  search        ms/search      time   MB in use    memory\n");
        for (const int contacts : pelk::kSizes)
            pelk::compareSearches(contacts, weights);
        std::printf("\n");
    }
    pelk::compareDomainSearches();
}
