#pragma once
// With whom the user, or another contact, has lost touch.

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "db/database.h"
#include "history/history.h"
#include "views/strength.h"

namespace pelk {

struct LostContact {
    int id = 0;
    std::int64_t weight = 0;
    Strength strength = Strength::Medium;
    /// The day of the last e-mail.
    Day last = 0;
};

struct LostSight {
    /// The strongest first; equal ones by their last e-mail, the latest first.
    std::vector<LostContact> contacts;
    /// How many other contacts have a strong or medium relation, but no e-mail in the history, so
    /// that nobody knows when the last one was.
    std::size_t undated = 0;
    /// How many are left out because they are hidden.
    std::size_t hidden = 0;
};

/// Returns the contacts that have a strong or medium relation with one of `people`, and no e-mail
/// with them in the last `months` months before `today`. Leaves out the contacts `hidden`.
LostSight lostSightOf(const Database& database, const History& history,
                      const std::vector<int>& people, Day today, int months,
                      const std::unordered_set<int>& hidden = {});

/// Returns the contacts that own one of the addresses, each once.
std::vector<int> ownersOf(const Database& database, const std::vector<std::string>& addresses);

}  // namespace pelk
