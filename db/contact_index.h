#pragma once
// Finds contacts by id and by address.
//
// The index keeps all occurrences of a repeated id or address, so that it finds the next one in
// document order after the first has been removed. Not thread-safe.

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
    /// Indexes all contacts that are children of `container`.
    explicit ContactIndex(const XmlElement& container);

    /// Indexes a contact that has just become the last one in the document.
    void append(const XmlElement& contact);

    std::size_t count() const { return count_; }
    /// The highest id, read leniently, of all contacts ever indexed; 0 if there is none.
    int highestId() const { return highestId_; }
    /// Returns the first contact in document order that has the id; an empty reference if none.
    XmlElement byId(int id) const;
    /// Returns the ids, read leniently, of all contacts that own the address, in document order.
    std::vector<int> idsByAddress(const std::string& address) const;
    /// Returns the first of them; 0 if there is none.
    int idByAddress(const std::string& address) const;

    /// Removes the contact that `byId` finds from the index and returns its element, which remains
    /// in the document; an empty reference if there is none.
    XmlElement take(int id);
    /// Adds an address to a contact. Requires: the contact exists.
    void addAddress(int id, std::string address) { give(std::move(address), positionOf(id)); }
    /// Moves the addresses of one contact to another. Requires: both exist, and the document has
    /// not been changed yet.
    void moveAddresses(int fromId, int toId);

 private:
    static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;

    struct Entry {
        XmlElement element;
        /// The id, read leniently. It never changes.
        int id = 0;
        /// The position of the next contact with the same id.
        std::uint32_t nextOfId = kNowhere;
    };
    /// The contacts with one id as a linked list in document order, nearly always of length 1.
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
    /// In document order. A removed contact leaves an entry with an empty reference.
    std::vector<Entry> contacts_;
    std::vector<Chain> byId_ = std::vector<Chain>(kMaxContactId + 1);
    std::unordered_map<std::string, Positions> byAddress_;
};

}  // namespace pelk
