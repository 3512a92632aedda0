#pragma once
// The contacts that the user does not want to see: mailing lists and robots. All forms that list
// contacts share one object, so that they agree.

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_set>

#include "db/database.h"
#include "history/history.h"

namespace pelk {

class HiddenContacts {
 public:
    using Ids = std::unordered_set<int>;

    /// `history` returns the history, or throws `Error` when it cannot be read; then only the names
    /// of addresses tell what they are.
    explicit HiddenContacts(std::function<const History&()> history)
        : history_(std::move(history)) {}
    HiddenContacts(const HiddenContacts&) = delete;
    HiddenContacts& operator=(const HiddenContacts&) = delete;

    /// Hides lists and robots from now on, or nobody, as at first.
    void hide(bool hides) { hides_ = hides; }
    /// Returns the ids of the hidden contacts. Finds them once for each revision of the database
    /// and of the history. The result is valid until the next call.
    const Ids& of(const Database& database);
    /// Returns how many are hidden, such as "12 hidden"; empty when nobody is.
    std::string text(const Database& database);

 private:
    void find(const Database& database, const History& history);

    const std::function<const History&()> history_;
    bool hides_ = false;
    Ids ids_;
    /// What `ids_` was found in.
    const Database* database_ = nullptr;
    std::uint64_t revision_ = 0;
    const History* found_ = nullptr;
    std::uint64_t foundRevision_ = 0;
    const History empty_;
};

/// Returns the ids that `hidden` hides; none when it is null.
const HiddenContacts::Ids& hiddenIds(HiddenContacts* hidden, const Database& database);
/// Returns its text, likewise.
std::string hiddenText(HiddenContacts* hidden, const Database& database);

}  // namespace pelk
