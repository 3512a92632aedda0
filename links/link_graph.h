#pragma once
// The relations of a document as a graph in compressed sparse rows: one array holds the edges of
// all contacts, another the position at which each contact's edges start.

#include <cstdint>
#include <span>
#include <vector>

#include "db/database.h"

namespace pelk {

/// A relation or a chain that costs this much or more does not count as a link.
inline constexpr int kNoLink = 100000;

/// A directed edge, packed into 32 bits to keep a contact's edges in few cache lines.
class LinkEdge {
 public:
    LinkEdge() = default;
    LinkEdge(int to, int cost)
        : bits_(static_cast<std::uint32_t>(cost) << kIdBits | static_cast<std::uint32_t>(to)) {}

    /// The contact at the other end.
    int to() const { return static_cast<int>(bits_ & kMaxContactId); }
    /// 1 to `kNoLink`; greater costs are stored as `kNoLink`.
    int cost() const { return static_cast<int>(bits_ >> kIdBits); }

 private:
    static constexpr int kIdBits = 15;
    static_assert(kMaxContactId == (1 << kIdBits) - 1);

    std::uint32_t bits_ = 0;
};

/// Immutable once built, so any number of threads may read it.
class LinkGraph {
 public:
    /// A graph without contacts.
    LinkGraph() = default;
    /// Reads the document. Throws `Error` when a relation names an id outside the document's range
    /// of contacts.
    ///
    /// The strongest relation costs 1; each e-mail fewer adds 1. Of several relations of a pair the
    /// last one counts, even when it is too weak for any chain.
    explicit LinkGraph(const Database& database);

    /// Returns the graph without the edges of these contacts, which keep their numbers. Ignores ids
    /// that the graph does not hold.
    LinkGraph without(const std::vector<int>& contacts) const;

    /// The number of contacts; their ids are 1 to this number.
    int contacts() const { return contacts_; }
    bool holds(int id) const { return id >= 1 && id <= contacts_; }
    /// The edges of a contact, one for each neighbour. Requires: `holds(id)`.
    std::span<const LinkEdge> edgesOf(int id) const {
        const auto row = static_cast<std::size_t>(id);
        return {edges_.data() + rowStart_[row], edges_.data() + rowStart_[row + 1]};
    }

 private:
    void addEdges(const std::vector<Relation>& relations, std::int64_t strongest);
    void dropOlderDuplicates();

    int contacts_ = 0;
    /// By id: where the contact's row starts in `edges_`. A row ends where the next one starts.
    std::vector<std::uint32_t> rowStart_;
    std::vector<LinkEdge> edges_;
};

}  // namespace pelk
