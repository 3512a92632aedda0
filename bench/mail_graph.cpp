#include "bench/mail_graph.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "bench/random.h"
#include "platform/desktop/pugi_document.h"

namespace pelk {
namespace {

constexpr int kRelationsPerContact = 6;
constexpr double kLargestWeight = 5000;

double drawWeight(Random& random, Weights weights) {
    return weights == Weights::Even
               ? std::ceil(100 * random.fraction())
               : std::min(kLargestWeight, std::floor(std::pow(random.fraction(), -1 / 1.2)));
}

std::string domainOf(int id, int stride) {
    return id % stride == 0 ? "source.example" : id % stride == 1 ? "target.example" : "x.example";
}

}  // namespace

MailGraph makeMailGraph(int contacts, Weights weights) {
    Random random;
    MailGraph graph{contacts, {}, {}};
    // Lists each contact once for each of its relations, so that a draw prefers those with many.
    std::vector<int> ends;
    double strongest = 0;
    for (int id = 1; id <= contacts; ++id) {
        std::set<int> others;
        while (others.size() < static_cast<std::size_t>(std::min(id - 1, kRelationsPerContact)))
            others.insert(id <= kRelationsPerContact ? static_cast<int>(others.size()) + 1
                                                     : ends[random.below(ends.size())]);
        for (const int other : others) {
            const double weight = drawWeight(random, weights);
            graph.relations.push_back({other, id, weight});
            strongest = std::max(strongest, weight);
            ends.insert(ends.end(), {id, other});
        }
    }
    for (const Relation& relation : graph.relations)
        graph.costs.push_back(static_cast<int>(strongest - relation.weight) + 1);
    return graph;
}

std::unique_ptr<Database> makeDatabase(const MailGraph& graph, int stride) {
    std::string xml = "<pelkDB totalContacts='" + std::to_string(graph.contacts) + "'><contacts>";
    for (int id = 1; id <= graph.contacts; ++id) {
        const std::string number = std::to_string(id);
        xml += "<contact id='" + number + "'><emails><email value='c" + number + "@" +
               domainOf(id, stride) + "'/></emails></contact>";
    }
    xml += "</contacts><relations>";
    for (const Relation& relation : graph.relations)
        xml += "<relation part1='" + std::to_string(relation.part1) + "' part2='" +
               std::to_string(relation.part2) + "' weight='" +
               std::to_string(static_cast<int>(relation.weight)) + "'/>";
    std::unique_ptr<XmlDocument> document = createPugiDocument();
    document->loadXml(xml + "</relations></pelkDB>");
    return std::make_unique<Database>(std::move(document));
}

std::vector<std::pair<int, int>> makePairs(int contacts, int count) {
    Random random;
    const auto anyone = [&] {
        return static_cast<int>(random.below(static_cast<std::size_t>(contacts))) + 1;
    };
    std::vector<std::pair<int, int>> pairs;
    while (pairs.size() < static_cast<std::size_t>(count))
        if (const std::pair pair(anyone(), anyone()); pair.first != pair.second)
            pairs.push_back(pair);
    return pairs;
}

}  // namespace pelk
