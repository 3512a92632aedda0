#pragma once
// When people wrote to each other: e-mails per month and direction between each pair of addresses.
//
// Addresses are in lower case, and not ids of contacts, so that renaming, merging and importing
// contacts need no second bookkeeping: the history of a contact is the sum over its addresses. It
// holds only addresses of contacts of the database, at the time they were counted.
//
// Not thread-safe: one thread at a time uses a history.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "history/exchange.h"

namespace pelk {

/// What the headers of an address's e-mails say of it.
struct AddressRecord {
    /// The e-mails that it sent, and how many of these were sent automatically: to subscribers, in
    /// bulk, by a program.
    std::uint32_t sent = 0;
    std::uint32_t automatic = 0;
    /// The header field that said so last; empty when none did.
    std::string automaticBy;
    /// The header field that names it as the address of a mailing list; empty when none did.
    std::string listBy;
    /// The e-mails that it sent which are in folders for sent mail, and whether it belongs to an
    /// account of the user.
    std::uint32_t inSentMail = 0;
    bool isAccount = false;

    bool empty() const { return *this == AddressRecord(); }
    /// Adds what later headers say of the same address.
    void add(const AddressRecord& later);

    friend bool operator==(const AddressRecord&, const AddressRecord&) = default;
};

/// Other values for some entries of a history, see `History::swap`.
class HistoryChange {
    friend class History;
    std::vector<std::pair<std::uint32_t, Exchange>> pairs_;
    std::vector<std::pair<std::uint32_t, AddressRecord>> records_;
};

class History {
 public:
    /// Counts an e-mail between two addresses, given by their numbers or texts. Does nothing when
    /// they are equal.
    void countMail(std::size_t from, std::size_t to, Day day);
    void countMail(const std::string& from, const std::string& to, Day day);
    /// Returns the record of an address, a new one when there is none; valid until the next change.
    AddressRecord& record(const std::string& address);
    /// Returns the record of an address; null when there is none.
    const AddressRecord* findRecord(const std::string& address) const;

    /// Returns the e-mails between two sides, each given by its addresses. E-mails within a side do
    /// not count.
    Exchange between(std::span<const std::string> side,
                     std::span<const std::string> otherSide) const;
    /// Calls `visit` with each address that has exchanged e-mails with `address`, in no particular
    /// order.
    void forEachPartner(
        const std::string& address,
        const std::function<void(const std::string& partner, const Exchange&)>& visit) const;
    /// Calls `visit` with each address that has a record or an exchange, in alphabetical order.
    void forEachAddress(const std::function<void(const std::string& address)>& visit) const;

    /// Adds all e-mails and records of another history, which is unspecified afterwards.
    void add(History&& other);
    /// Forgets the addresses for which `remains` returns false, with all their exchanges.
    void keepOnly(const std::function<bool(const std::string& address)>& remains);

    /// Forgets which addresses are the user's, for a history that goes to somebody else.
    void forgetUser();

    /// Return what `swap` needs to do what `add` and `keepOnly` do.
    HistoryChange additionOf(const History& other);
    HistoryChange removalOfOthers(
        const std::function<bool(const std::string& address)>& remains) const;
    /// Exchanges the values of the change's entries with those of this history, so that a second
    /// call reverts the first. Changes are to be reverted in the order of a stack.
    void swap(HistoryChange& change) noexcept;

    /// Exchanges the content of two histories.
    void swap(History& other) noexcept;

    /// The addresses are numbered from 0; the numbers never change. These functions serve to write
    /// and to read a history. Some addresses may have neither record nor exchange.
    std::size_t addressCount() const { return addresses_.size(); }
    const std::string& address(std::size_t number) const { return addresses_[number].text; }
    const AddressRecord& recordOf(std::size_t number) const { return addresses_[number].record; }
    AddressRecord& recordOf(std::size_t number) { return addresses_[number].record; }
    std::size_t numberOf(const std::string& address);
    /// Returns the number of an address; nothing when it has none.
    std::optional<std::size_t> findNumber(const std::string& address) const;
    /// Calls `visit` with the exchanges of an address with those that have a larger number, in
    /// their order.
    void forEachExchange(
        std::size_t number,
        const std::function<void(std::size_t other, const Exchange&)>& visit) const;
    /// Adds e-mails between two different addresses, seen from the first one.
    void addExchange(std::size_t number, std::size_t other, Exchange&& exchange);

    bool empty() const;
    /// A number that increases with every change.
    std::uint64_t revision() const { return revision_; }

    friend bool operator==(const History& a, const History& b);

 private:
    using Number = std::uint32_t;
    struct Partner {
        Number number = 0;
        /// The place in `pairs_`.
        Number pair = 0;
    };
    struct Address {
        std::string text;
        AddressRecord record;
        /// In the order of their numbers.
        std::vector<Partner> partners;
    };
    struct Pair {
        /// The first number is the smaller one.
        Number one = 0;
        Number other = 0;
        /// Seen from `one`; may be empty.
        Exchange exchange;

        Exchange seenFrom(std::size_t number) const {
            return number == one ? exchange : exchange.reversed();
        }
    };

    const Pair* findPair(std::size_t number, std::size_t other) const;
    Pair& pairOf(std::size_t number, std::size_t other);
    void insertPartner(std::size_t number, Partner partner);
    bool hasExchange(const Address& address) const;

    std::vector<Address> addresses_;
    std::unordered_map<std::string, Number> numbers_;
    std::vector<Pair> pairs_;
    std::uint64_t revision_ = 0;
};

}  // namespace pelk
