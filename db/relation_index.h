#pragma once
// Finds relations by contact and by pair of contacts.
//
// A removal leaves a gap. When more than half of the entries are gaps, the index is compacted, so a
// change costs amortised time proportional to the relations it touches. Not thread-safe.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "db/numbers.h"
#include "db/records.h"
#include "platform/xml.h"

namespace pelk {

struct RelationEntry {
    XmlElement element;
    Relation relation;
};

class RelationIndex {
 public:
    RelationIndex() = default;
    /// Indexes all relations that are children of `container`.
    explicit RelationIndex(const XmlElement& container);

    /// Indexes a relation that has just become the last one in the document.
    void append(XmlElement element);

    std::size_t count() const { return entries_.size() - gaps_; }
    /// Call `visit` with the entry of each relation, or of each relation of a contact, in document
    /// order.
    template <typename Visit>
    void forEach(const Visit& visit) const {
        for (const RelationEntry& entry : entries_)
            if (entry.element)
                visit(entry);
    }
    template <typename Visit>
    void forEachOf(int id, const Visit& visit) const {
        for (const Place& place : placesOf(id))
            if (const RelationEntry& entry = entries_[place.position]; entry.element)
                visit(entry);
    }
    /// Return the first relation of the pair in document order; null if there is none. The pointer
    /// is valid until the next change.
    const RelationEntry* ofPair(int smallerId, int largerId) const;
    RelationEntry* ofPair(int smallerId, int largerId);

    /// Removes the first relation of the pair from the index and returns its element, which remains
    /// in the document; an empty reference if there is none.
    XmlElement takeOfPair(int smallerId, int largerId);
    /// Removes all relations of a contact from the index and returns their elements, which remain
    /// in the document.
    std::vector<XmlElement> takeAllOf(int id);

 private:
    static constexpr int kNobody = -1;

    struct Place {
        /// The position of the entry.
        std::uint32_t position;
        /// The id of the contact at the other end; `kNobody` when no query for an id finds it.
        int partner;
    };
    using Places = std::vector<Place>;

    /// The ids at the ends of a relation; `kNobody` for an id that no query finds.
    struct Ends {
        int id1;
        int id2;
    };

    template <typename Visit>
    static void forEachEnd(const Ends& ends, const Visit& visit);
    Ends addEntry(XmlElement element);
    void addPlaces(std::uint32_t position, const Ends& ends);
    const Places& placesOf(int id) const;
    XmlElement take(RelationEntry& entry);
    void closeManyGaps();

    /// In document order; a gap has no element.
    std::vector<RelationEntry> entries_;
    std::size_t gaps_ = 0;
    /// By id: the places of the contact's relations in document order, gaps included.
    std::vector<Places> byContact_ = std::vector<Places>(kMaxContactId + 1);
};

}  // namespace pelk
