#include "db/relation_index.h"

#include <utility>

namespace pelk {

/// Calls `visit` with each end that a query finds, and its partner.
template <typename Visit>
void RelationIndex::forEachEnd(const Ends& ends, const Visit& visit) {
    const auto [id1, id2] = ends;
    if (id1 != kNobody)
        visit(static_cast<std::size_t>(id1), id2);
    if (id2 != kNobody && id2 != id1)
        visit(static_cast<std::size_t>(id2), id1);
}

/// Counts the places of each contact first, so that no list is reallocated.
RelationIndex::RelationIndex(const XmlElement& container) {
    std::vector<Ends> ends;
    std::vector<std::size_t> counts(byContact_.size());
    forEachChild(container, "relation", [&](const XmlElement& relation) {
        ends.push_back(addEntry(relation));
        forEachEnd(ends.back(), [&counts](std::size_t id, int) { ++counts[id]; });
    });
    for (std::size_t id = 0; id < counts.size(); ++id)
        byContact_[id].reserve(counts[id]);
    for (std::uint32_t position = 0; position < ends.size(); ++position)
        addPlaces(position, ends[position]);
}

void RelationIndex::append(XmlElement element) {
    const auto position = static_cast<std::uint32_t>(entries_.size());
    addPlaces(position, addEntry(std::move(element)));
}

RelationIndex::Ends RelationIndex::addEntry(XmlElement element) {
    const auto [part1, part2, weight] = element.texts("part1", "part2", "weight");
    const Ends ends{plainContactId(part1).value_or(kNobody),
                    plainContactId(part2).value_or(kNobody)};
    const Relation relation{readContactId(part1), readContactId(part2), readNumber(weight)};
    entries_.push_back({std::move(element), relation});
    return ends;
}

void RelationIndex::addPlaces(std::uint32_t position, const Ends& ends) {
    forEachEnd(ends, [&](std::size_t id, int partner) {
        byContact_[id].push_back({position, partner});
    });
}

/// Searches the relations of the contact that has fewer.
const RelationEntry* RelationIndex::ofPair(int smallerId, int largerId) const {
    const Places& ofSmaller = placesOf(smallerId);
    const Places& ofLarger = placesOf(largerId);
    const bool smallerHasFewer = ofSmaller.size() < ofLarger.size();
    const int partner = smallerHasFewer ? largerId : smallerId;
    for (const Place& place : smallerHasFewer ? ofSmaller : ofLarger) {
        if (place.partner != partner)
            continue;
        const RelationEntry& entry = entries_[place.position];
        if (entry.element && entry.relation.part1 == smallerId)
            return &entry;
    }
    return nullptr;
}

RelationEntry* RelationIndex::ofPair(int smallerId, int largerId) {
    return const_cast<RelationEntry*>(std::as_const(*this).ofPair(smallerId, largerId));
}

XmlElement RelationIndex::takeOfPair(int smallerId, int largerId) {
    RelationEntry* const entry = ofPair(smallerId, largerId);
    if (entry == nullptr)
        return {};
    XmlElement element = take(*entry);
    closeManyGaps();
    return element;
}

std::vector<XmlElement> RelationIndex::takeAllOf(int id) {
    std::vector<XmlElement> elements;
    for (const Place& place : placesOf(id))
        if (RelationEntry& entry = entries_[place.position]; entry.element)
            elements.push_back(take(entry));
    closeManyGaps();
    return elements;
}

const RelationIndex::Places& RelationIndex::placesOf(int id) const {
    static const Places none;
    return id >= 0 && id <= kMaxContactId ? byContact_[static_cast<std::size_t>(id)] : none;
}

XmlElement RelationIndex::take(RelationEntry& entry) {
    ++gaps_;
    return std::exchange(entry.element, {});
}

void RelationIndex::closeManyGaps() {
    if (gaps_ <= count())
        return;
    std::vector<RelationEntry> entries = std::exchange(entries_, {});
    gaps_ = 0;
    for (const RelationEntry& entry : entries) {
        byContact_[static_cast<std::size_t>(entry.relation.part1)].clear();
        byContact_[static_cast<std::size_t>(entry.relation.part2)].clear();
    }
    for (RelationEntry& entry : entries)
        if (entry.element)
            append(std::move(entry.element));
}

}  // namespace pelk
