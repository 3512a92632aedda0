#include "db/relation_index.h"

#include <optional>
#include <string>
#include <utility>

namespace pelk {
namespace {

/// The partner in a relation whose other part no query for an id finds.
constexpr int kNobody = -1;

}  // namespace

void RelationIndex::append(XmlElement element) {
    const auto position = static_cast<std::uint32_t>(entries_.size());
    const std::string part1 = element.text("part1");
    const std::string part2 = element.text("part2");
    const std::optional<int> id1 = plainContactId(part1);
    const std::optional<int> id2 = plainContactId(part2);
    const Relation relation{id1 ? *id1 : readContactId(part1), id2 ? *id2 : readContactId(part2),
                            readNumber(element.text("weight"))};
    entries_.push_back({std::move(element), relation});

    if (id1)
        addPlace(*id1, {position, id2.value_or(kNobody)});
    if (id2 && id2 != id1)
        addPlace(*id2, {position, id1.value_or(kNobody)});
}

void RelationIndex::addPlace(int id, const Place& place) {
    Places& places = byContact_[static_cast<std::size_t>(id)];
    // Growing step by step from one place on would take twice as long.
    if (places.capacity() == 0)
        places.reserve(8);
    places.push_back(place);
}

/// Looks among the relations of whoever has fewer.
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
