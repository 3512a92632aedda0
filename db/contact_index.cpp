#include "db/contact_index.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "db/records.h"

namespace pelk {

ContactIndex::ContactIndex(const XmlElement& container) {
    forEachChild(container, "contact", [this](const XmlElement& contact) { append(contact); });
}

void ContactIndex::append(const XmlElement& contact) {
    const auto position = static_cast<std::uint32_t>(contacts_.size());
    const std::string id = contact.text("id");
    contacts_.push_back({contact, readContactId(id)});
    ++count_;
    highestId_ = std::max(highestId_, contacts_.back().id);
    if (const std::optional<int> plain = plainContactId(id)) {
        Chain& chain = byId_[static_cast<std::size_t>(*plain)];
        (chain.first == kNowhere ? chain.first : contacts_[chain.last].nextOfId) = position;
        chain.last = position;
    }
    for (std::string& address : addressesOf(contact))
        give(std::move(address), position);
}

XmlElement ContactIndex::byId(int id) const {
    const std::uint32_t position = positionOf(id);
    return position == kNowhere ? XmlElement() : contacts_[position].element;
}

int ContactIndex::idByAddress(const std::string& address) const {
    const auto found = byAddress_.find(address);
    return found == byAddress_.end() ? 0 : contacts_[found->second.front()].id;
}

std::vector<int> ContactIndex::idsByAddress(const std::string& address) const {
    std::vector<int> ids;
    if (const auto found = byAddress_.find(address); found != byAddress_.end())
        for (const std::uint32_t position : found->second)
            ids.push_back(contacts_[position].id);
    return ids;
}

XmlElement ContactIndex::take(int id) {
    const std::uint32_t position = positionOf(id);
    if (position == kNowhere)
        return {};
    Entry& entry = contacts_[position];
    byId_[static_cast<std::size_t>(id)].first = entry.nextOfId;
    for (const std::string& address : addressesOf(entry.element))
        withdraw(address, position);
    --count_;
    return std::exchange(entry.element, {});
}

void ContactIndex::moveAddresses(int fromId, int toId) {
    const std::uint32_t from = positionOf(fromId);
    const std::uint32_t to = positionOf(toId);
    for (std::string& address : addressesOf(contacts_[from].element)) {
        withdraw(address, from);
        give(std::move(address), to);
    }
}

std::uint32_t ContactIndex::positionOf(int id) const {
    return id >= 0 && id <= kMaxContactId ? byId_[static_cast<std::size_t>(id)].first : kNowhere;
}

/// Lists a contact once, even if it has the address several times.
void ContactIndex::give(std::string address, std::uint32_t position) {
    Positions& owners = byAddress_[std::move(address)];
    const auto at = std::lower_bound(owners.begin(), owners.end(), position);
    if (at == owners.end() || *at != position)
        owners.insert(at, position);
}

void ContactIndex::withdraw(const std::string& address, std::uint32_t position) {
    const auto found = byAddress_.find(address);
    if (found == byAddress_.end())
        return;
    Positions& owners = found->second;
    const auto at = std::lower_bound(owners.begin(), owners.end(), position);
    if (at != owners.end() && *at == position)
        owners.erase(at);
    if (owners.empty())
        byAddress_.erase(found);
}

}  // namespace pelk
