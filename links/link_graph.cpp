#include "links/link_graph.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace pelk {
namespace {

/// Contacts above `kMaxContactId` have no relations, so one of them stands in for all.
int numberOfContacts(const Database& database) {
    return static_cast<int>(
        std::clamp<std::int64_t>(database.totalContacts(), 0, kMaxContactId + 1));
}

/// Subtracts unsigned: in a foreign document the difference of two weights may exceed `int64_t`.
int costOf(std::int64_t weight, std::int64_t strongest) {
    const std::uint64_t distance =
        static_cast<std::uint64_t>(strongest) - static_cast<std::uint64_t>(weight);
    return static_cast<int>(std::min<std::uint64_t>(distance, kNoLink - 1)) + 1;
}

}  // namespace

LinkGraph::LinkGraph(const Database& database)
    : contacts_(numberOfContacts(database)), rowStart_(static_cast<std::size_t>(contacts_) + 2) {
    const std::vector<Relation> relations = database.relations();
    for (const Relation& relation : relations)
        if (!holds(relation.part1) || !holds(relation.part2))
            throw Error("The database is damaged: a relation joins contacts " +
                        std::to_string(relation.part1) + " and " + std::to_string(relation.part2) +
                        ", but contacts are numbered 1 to " + std::to_string(contacts_) + ".");
    addEdges(relations, database.strongestWeight());
    dropOlderDuplicates();
}

/// Builds the rows by counting sort. Within a row, edges of later relations come first.
void LinkGraph::addEdges(const std::vector<Relation>& relations, std::int64_t strongest) {
    const auto row = [this](int id) -> std::uint32_t& {
        return rowStart_[static_cast<std::size_t>(id)];
    };
    for (const Relation& relation : relations) {
        ++row(relation.part1);
        ++row(relation.part2);
    }
    std::partial_sum(rowStart_.begin(), rowStart_.end(), rowStart_.begin());
    edges_.resize(rowStart_.back());
    for (const Relation& relation : relations) {
        const int cost = costOf(roundToInteger(relation.weight), strongest);
        edges_[--row(relation.part1)] = {relation.part2, cost};
        edges_[--row(relation.part2)] = {relation.part1, cost};
    }
}

/// Keeps the first edge to each neighbour in a row, which belongs to the last relation.
void LinkGraph::dropOlderDuplicates() {
    std::vector<std::size_t> seenFrom(rowStart_.size());
    std::size_t kept = 0;
    for (std::size_t id = 0; id + 1 < rowStart_.size(); ++id) {
        const std::size_t start = std::exchange(rowStart_[id], static_cast<std::uint32_t>(kept));
        for (std::size_t at = start; at < rowStart_[id + 1]; ++at) {
            const LinkEdge edge = edges_[at];
            if (std::exchange(seenFrom[static_cast<std::size_t>(edge.to())], id) != id)
                edges_[kept++] = edge;
        }
    }
    rowStart_.back() = static_cast<std::uint32_t>(kept);
    edges_.resize(kept);
}

LinkGraph LinkGraph::without(const std::vector<int>& contacts) const {
    std::vector<bool> isLeftOut(rowStart_.size());
    for (const int id : contacts)
        if (holds(id))
            isLeftOut[static_cast<std::size_t>(id)] = true;
    LinkGraph graph;
    graph.contacts_ = contacts_;
    graph.rowStart_.assign(1, 0);
    for (int id = 0; id <= contacts_; ++id) {
        for (const LinkEdge edge : edgesOf(id))
            if (!isLeftOut[static_cast<std::size_t>(id)] &&
                !isLeftOut[static_cast<std::size_t>(edge.to())])
                graph.edges_.push_back(edge);
        graph.rowStart_.push_back(static_cast<std::uint32_t>(graph.edges_.size()));
    }
    return graph;
}

}  // namespace pelk
