#pragma once
// The best chains between two contacts, of which one at a time is shown, and the contacts that the
// user wants them to avoid.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "db/database.h"
#include "links/link_search.h"

namespace pelk {

/// A search of the largest database takes less than a tenth of a second.
class AlternativeChains {
 public:
    /// The number of chains that are offered.
    static constexpr std::size_t kMost = 10;

    /// Searches the chains between the ends of the best one, which is shown first. The database
    /// outlives this object's use of it. Throws as `LinkSearch::find` does.
    void start(const Database& database, const std::vector<int>& best);
    /// Searches again after a change of the database. The chain shown stays, even if it is not
    /// among the best any more.
    void update();

    /// The contacts of the chain shown, from the source to the target.
    const std::vector<int>& shown() const { return shown_; }
    bool hasPrevious() const { return place_ && *place_ > 0; }
    bool hasNext() const { return next() < chains_.size(); }
    /// Requires: there is such a chain.
    void showPrevious() { show(*place_ - 1); }
    void showNext() { show(next()); }

    /// Whether a contact is on the chain shown, but not one of its ends.
    bool canAvoid(int id) const;
    /// Searches the chains that also avoid this contact, and shows the best. Returns false, with
    /// nothing changed, when there is none.
    bool avoid(int id);
    bool avoidsAny() const { return !avoided_.empty(); }
    /// Allows the contact that was avoided last, and shows the best chain. Requires: `avoidsAny()`.
    void allowLast();

    /// Returns a line for the user: 2 of 5, cost 7, not through Bob.
    std::string summary() const;

 private:
    std::vector<LinkChain> search(const std::vector<int>& avoided) const;
    void replace(std::vector<LinkChain> chains);
    void show(std::size_t place);
    std::size_t next() const { return place_ ? *place_ + 1 : 0; }

    const Database* database_ = nullptr;
    std::vector<int> avoided_;
    std::vector<LinkChain> chains_;
    std::vector<int> shown_;
    /// Where the chain shown stands among the chains; nothing if it is not one of them.
    std::optional<std::size_t> place_;
};

/// Returns the line for a contact that every chain needs.
std::string needsMessage(const Database& database, int id);

}  // namespace pelk
