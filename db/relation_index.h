#pragma once
// Finds relations by contact and by pair of contacts.
//
// What is taken leaves a gap, and the gaps are closed when they are more than half: so a change
// costs no more, on the average, than the relations that it touches.

#include <cstddef>
#include <cstdint>
#include <queue>
#include <unordered_map>
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
        for (const std::uint32_t position : positionsOf(id))
            if (entries_[position].element)
                visit(entries_[position]);
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
    using Positions = std::vector<std::uint32_t>;

    const Positions& positionsOf(int id) const;
    XmlElement take(std::uint32_t position);
    void closeManyGaps();

    /// In document order; a gap has no element.
    std::vector<RelationEntry> entries_;
    std::size_t gaps_ = 0;
    /// The positions of each contact's relations, gaps among them.
    std::vector<Positions> byContact_ = std::vector<Positions>(kMaxContactId + 1);
    /// The position of each pair's first relation.
    std::unordered_map<std::uint32_t, std::uint32_t> byPair_;
    /// The further relations of the pairs that have several, which a sound document does not have.
    std::unordered_map<std::uint32_t, std::queue<std::uint32_t>> repeats_;
};

}  // namespace pelk
