#pragma once
// Who is related to whom and what each relation costs in a chain, read from the document at once.

#include <cstdint>
#include <span>
#include <vector>

#include "db/database.h"

namespace pelk {

/// The ceiling on costs: a relation or a chain that costs this much or more is none.
inline constexpr int kNoLink = 100000;

/// A relation as one of its ends sees it, in 32 bits: a contact's relations lie close together.
class LinkEdge {
 public:
    LinkEdge() = default;
    LinkEdge(int to, int cost)
        : bits_(static_cast<std::uint32_t>(cost) << kIdBits | static_cast<std::uint32_t>(to)) {}

    /// The contact at the other end.
    int to() const { return static_cast<int>(bits_ & kMaxContactId); }
    /// 1 to `kNoLink`, which stands for all above it.
    int cost() const { return static_cast<int>(bits_ >> kIdBits); }

 private:
    static constexpr int kIdBits = 15;
    static_assert(kMaxContactId == (1 << kIdBits) - 1);

    std::uint32_t bits_ = 0;
};

class LinkGraph {
 public:
    /// A graph without contacts.
    LinkGraph() = default;
    /// Reads the document as it stands. Throws `Error` when a relation joins what cannot be a
    /// contact, by the number of contacts that the document gives.
    ///
    /// The strongest relation costs 1, and each e-mail less costs 1 more. Of several relations for
    /// a pair the last one counts, even when it is too weak for any chain.
    explicit LinkGraph(const Database& database);

    /// Contacts are numbered 1 to this.
    int contacts() const { return contacts_; }
    bool holds(int id) const { return id >= 1 && id <= contacts_; }
    /// One edge for each contact that a contact of the graph is related to.
    std::span<const LinkEdge> edgesOf(int id) const {
        const auto row = static_cast<std::size_t>(id);
        return {edges_.data() + firstEdge_[row], edges_.data() + firstEdge_[row + 1]};
    }

 private:
    void addEdges(const std::vector<Relation>& relations, std::int64_t strongest);
    void dropOvertaken();

    int contacts_ = 0;
    /// By id; the relations of a contact end where those of the next one start.
    std::vector<std::uint32_t> firstEdge_;
    std::vector<LinkEdge> edges_;
};

}  // namespace pelk
