#include "links/link_graph.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace pelk {
namespace {

/// No id lies above the largest one. A document that claims more contacts gets one that nobody
/// knows, which stands for all of them.
int numberOfContacts(const Database& database) {
    return static_cast<int>(
        std::clamp<std::int64_t>(database.totalContacts(), 0, kMaxContactId + 1));
}

/// No weight is above the strongest. In a document from elsewhere two may be further apart than a
/// signed number can tell.
int costOf(std::int64_t weight, std::int64_t strongest) {
    const std::uint64_t distance =
        static_cast<std::uint64_t>(strongest) - static_cast<std::uint64_t>(weight);
    return static_cast<int>(std::min<std::uint64_t>(distance, kNoLink - 1)) + 1;
}

}  // namespace

LinkGraph::LinkGraph(const Database& database)
    : contacts_(numberOfContacts(database)), firstEdge_(static_cast<std::size_t>(contacts_) + 2) {
    const std::vector<Relation> relations = database.relations();
    for (const Relation& relation : relations)
        if (!holds(relation.part1) || !holds(relation.part2))
            throw Error("The database is damaged: a relation joins contacts " +
                        std::to_string(relation.part1) + " and " + std::to_string(relation.part2) +
                        ", but contacts are numbered 1 to " + std::to_string(contacts_) + ".");
    addEdges(relations, database.strongestWeight());
    dropOvertaken();
}

/// Puts the edges of each contact together, those of later relations first.
void LinkGraph::addEdges(const std::vector<Relation>& relations, std::int64_t strongest) {
    const auto row = [this](int id) -> std::uint32_t& {
        return firstEdge_[static_cast<std::size_t>(id)];
    };
    for (const Relation& relation : relations) {
        ++row(relation.part1);
        ++row(relation.part2);
    }
    std::partial_sum(firstEdge_.begin(), firstEdge_.end(), firstEdge_.begin());
    edges_.resize(firstEdge_.back());
    for (const Relation& relation : relations) {
        const int cost = costOf(roundToInteger(relation.weight), strongest);
        edges_[--row(relation.part1)] = {relation.part2, cost};
        edges_[--row(relation.part2)] = {relation.part1, cost};
    }
}

/// Keeps the first edge to each neighbour, which is the last relation's.
void LinkGraph::dropOvertaken() {
    std::vector<std::size_t> seenFrom(firstEdge_.size());
    std::size_t kept = 0;
    for (std::size_t id = 0; id + 1 < firstEdge_.size(); ++id) {
        const std::size_t start = std::exchange(firstEdge_[id], static_cast<std::uint32_t>(kept));
        for (std::size_t at = start; at < firstEdge_[id + 1]; ++at) {
            const LinkEdge edge = edges_[at];
            if (std::exchange(seenFrom[static_cast<std::size_t>(edge.to())], id) != id)
                edges_[kept++] = edge;
        }
    }
    firstEdge_.back() = static_cast<std::uint32_t>(kept);
    edges_.resize(kept);
}

}  // namespace pelk
