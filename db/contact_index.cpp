#include "db/contact_index.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "db/records.h"

namespace pelk {

void ContactIndex::append(const XmlElement& contact) {
    const auto position = static_cast<std::uint32_t>(contacts_.size());
    contacts_.push_back(contact);
    ++count_;
    if (const std::optional<int> id = plainContactId(contact.text("id")))
        byId_[static_cast<std::size_t>(*id)].push_back(position);
    for (const std::string& address : addressesOf(contact))
        give(address, position);
}

XmlElement ContactIndex::byId(int id) const {
    const Positions& positions = positionsOf(id);
    return positions.empty() ? XmlElement() : contacts_[positions.front()];
}

XmlElement ContactIndex::byAddress(const std::string& address) const {
    const auto found = byAddress_.find(address);
    return found == byAddress_.end() ? XmlElement() : contacts_[found->second.front()];
}

std::vector<XmlElement> ContactIndex::allByAddress(const std::string& address) const {
    std::vector<XmlElement> owners;
    if (const auto found = byAddress_.find(address); found != byAddress_.end())
        for (const std::uint32_t position : found->second)
            owners.push_back(contacts_[position]);
    return owners;
}

XmlElement ContactIndex::take(int id) {
    const Positions& positions = positionsOf(id);
    if (positions.empty())
        return {};
    const std::uint32_t position = positions.front();
    XmlElement contact = std::exchange(contacts_[position], {});
    Positions& ofId = byId_[static_cast<std::size_t>(id)];
    ofId.erase(ofId.begin());
    for (const std::string& address : addressesOf(contact))
        withdraw(address, position);
    --count_;
    return contact;
}

void ContactIndex::moveAddresses(int fromId, int toId) {
    const std::uint32_t from = positionsOf(fromId).front();
    const std::uint32_t to = positionsOf(toId).front();
    for (const std::string& address : addressesOf(contacts_[from])) {
        withdraw(address, from);
        give(address, to);
    }
}

const ContactIndex::Positions& ContactIndex::positionsOf(int id) const {
    static const Positions none;
    return id >= 0 && id <= kMaxContactId ? byId_[static_cast<std::size_t>(id)] : none;
}

/// A contact that lists the address already keeps its one place.
void ContactIndex::give(const std::string& address, std::uint32_t position) {
    Positions& owners = byAddress_[address];
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
