#pragma once
// Finds relations by contact and by pair of contacts.
//
// What is taken leaves a gap, and the gaps are closed when they are more than half: so a change
// costs no more, on the average, than the relations that it touches.

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
    /// Takes in all relations of the element in which they stand.
    explicit RelationIndex(const XmlElement& container);

    /// Takes in the relation that stands last in the document.
    void append(XmlElement element);

    std::size_t count() const { return entries_.size() - gaps_; }
    /// Calls the visitor with the entry of each relation, or of each relation of a contact, in
    /// document order.
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
    /// The first relation of the pair in document order, until the next change; null when there
    /// is none.
    const RelationEntry* ofPair(int smallerId, int largerId) const;
    RelationEntry* ofPair(int smallerId, int largerId);

    /// Forgets the first relation of the pair, and returns its element, which is still in the
    /// document; an empty reference when there is none.
    XmlElement takeOfPair(int smallerId, int largerId);
    /// The same for all relations of a contact.
    std::vector<XmlElement> takeAllOf(int id);

 private:
    static constexpr int kNobody = -1;

    struct Place {
        /// Of the entry.
        std::uint32_t position;
        /// The id of the contact at the other end; `kNobody` when no query for an id finds it.
        int partner;
    };
    using Places = std::vector<Place>;

    /// The ids at the ends of a relation; `kNobody` for one that no query for an id finds.
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
    /// The places of each contact's relations, gaps among them, in document order.
    std::vector<Places> byContact_ = std::vector<Places>(kMaxContactId + 1);
};

}  // namespace pelk
