#include "db/relation_index.h"

#include <optional>
#include <string>
#include <utility>

namespace pelk {
namespace {

bool mayBeIndexed(int id) {
    return id >= 0 && id <= kMaxContactId;
}

std::uint32_t pairKey(int part1, int part2) {
    return static_cast<std::uint32_t>(part1) << 16U | static_cast<std::uint32_t>(part2);
}

}  // namespace

void RelationIndex::append(XmlElement element) {
    const auto position = static_cast<std::uint32_t>(entries_.size());
    const std::string part1 = element.text("part1");
    const std::string part2 = element.text("part2");
    const Relation relation{readContactId(part1), readContactId(part2),
                            readNumber(element.text("weight"))};
    entries_.push_back({std::move(element), relation});

    const std::optional<int> id1 = plainContactId(part1);
    const std::optional<int> id2 = plainContactId(part2);
    if (id1)
        byContact_[static_cast<std::size_t>(*id1)].push_back(position);
    if (id2 && id2 != id1)
        byContact_[static_cast<std::size_t>(*id2)].push_back(position);
    if (id1 && id2)
        if (const std::uint32_t key = pairKey(*id1, *id2); !byPair_.emplace(key, position).second)
            repeats_[key].push(position);
}

const RelationEntry* RelationIndex::ofPair(int smallerId, int largerId) const {
    if (!mayBeIndexed(smallerId) || !mayBeIndexed(largerId))
        return nullptr;
    const auto found = byPair_.find(pairKey(smallerId, largerId));
    return found == byPair_.end() ? nullptr : &entries_[found->second];
}

RelationEntry* RelationIndex::ofPair(int smallerId, int largerId) {
    return const_cast<RelationEntry*>(std::as_const(*this).ofPair(smallerId, largerId));
}

XmlElement RelationIndex::takeOfPair(int smallerId, int largerId) {
    if (ofPair(smallerId, largerId) == nullptr)
        return {};
    const auto first = byPair_.find(pairKey(smallerId, largerId));
    XmlElement element = take(first->second);
    if (const auto further = repeats_.find(first->first); further != repeats_.end()) {
        first->second = further->second.front();
        further->second.pop();
        if (further->second.empty())
            repeats_.erase(further);
    } else {
        byPair_.erase(first);
    }
    closeManyGaps();
    return element;
}

std::vector<XmlElement> RelationIndex::takeAllOf(int id) {
    std::vector<XmlElement> elements;
    for (const std::uint32_t position : positionsOf(id)) {
        if (!entries_[position].element)
            continue;
        // All relations of the pair are this contact's, so none of them is left.
        const Relation& relation = entries_[position].relation;
        const std::uint32_t key = pairKey(relation.part1, relation.part2);
        byPair_.erase(key);
        repeats_.erase(key);
        elements.push_back(take(position));
    }
    closeManyGaps();
    return elements;
}

const RelationIndex::Positions& RelationIndex::positionsOf(int id) const {
    static const Positions none;
    return mayBeIndexed(id) ? byContact_[static_cast<std::size_t>(id)] : none;
}

XmlElement RelationIndex::take(std::uint32_t position) {
    ++gaps_;
    return std::exchange(entries_[position].element, {});
}

void RelationIndex::closeManyGaps() {
    if (gaps_ <= count())
        return;
    std::vector<RelationEntry> entries = std::exchange(entries_, {});
    gaps_ = 0;
    byPair_.clear();
    repeats_.clear();
    for (const RelationEntry& entry : entries) {
        byContact_[static_cast<std::size_t>(entry.relation.part1)].clear();
        byContact_[static_cast<std::size_t>(entry.relation.part2)].clear();
    }
    for (RelationEntry& entry : entries)
        if (entry.element)
            append(std::move(entry.element));
}

}  // namespace pelk
