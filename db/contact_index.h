#pragma once
// Finds contacts by id and by address.
//
// Ids and addresses that stand twice in the document are all kept, so that the next one in
// document order is found once the first is gone.

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "db/numbers.h"
#include "platform/xml.h"

namespace pelk {

class ContactIndex {
 public:
    ContactIndex() = default;
    /// Takes in all contacts of the element in which they stand.
    explicit ContactIndex(const XmlElement& container);

    /// Takes in the contact that stands last in the document.
    void append(const XmlElement& contact);

    std::size_t count() const { return count_; }
    /// The highest of the ids, read leniently, of all contacts ever taken in; 0 without any.
    int highestId() const { return highestId_; }
    /// The first contact in document order that has the id; an empty reference when there is none.
    XmlElement byId(int id) const;
    /// The ids, read leniently, of all contacts that own the address, in document order. The first
    /// alone is 0 when there is none.
    std::vector<int> idsByAddress(const std::string& address) const;
    int idByAddress(const std::string& address) const;

    /// Forgets the contact that `byId` finds, and returns its element, which is still in the
    /// document; an empty reference when there is none.
    XmlElement take(int id);
    /// Gives a contact, which exists, one more address.
    void addAddress(int id, std::string address) { give(std::move(address), positionOf(id)); }
    /// Gives the addresses of one contact to another; both exist, and their elements have not
    /// been changed yet.
    void moveAddresses(int fromId, int toId);

 private:
    static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;

    struct Entry {
        XmlElement element;
        /// As it is read leniently. No contact's id ever changes.
        int id = 0;
        /// The position of the next contact with the very same id.
        std::uint32_t nextOfId = kNowhere;
    };
    /// The contacts with one id, linked in document order: nearly always a single one.
    struct Chain {
        std::uint32_t first = kNowhere;
        std::uint32_t last = kNowhere;
    };
    /// Ascending, so the first contact in document order comes first.
    using Positions = std::vector<std::uint32_t>;

    std::uint32_t positionOf(int id) const;
    void give(std::string address, std::uint32_t position);
    void withdraw(const std::string& address, std::uint32_t position);

    std::size_t count_ = 0;
    int highestId_ = 0;
    /// In document order, with an empty reference in the place of each that was taken.
    std::vector<Entry> contacts_;
    std::vector<Chain> byId_ = std::vector<Chain>(kMaxContactId + 1);
    std::unordered_map<std::string, Positions> byAddress_;
};

}  // namespace pelk
