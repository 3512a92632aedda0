#include "views/lost_sight.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "views/over_time.h"

namespace pelk {
namespace {

/// Returns the contacts related to one of `people`, except themselves, with the largest weight.
std::map<int, std::int64_t> weightsOf(const Database& database, const std::vector<int>& people) {
    std::map<int, std::int64_t> weights;
    for (const int person : people)
        for (const Relation& relation : database.relationsOf(person)) {
            std::int64_t& weight = weights[relation.partnerOf(person)];
            weight = std::max(weight, roundToInteger(relation.weight));
        }
    for (const int person : people)
        weights.erase(person);
    return weights;
}

}  // namespace

LostSight lostSightOf(const Database& database, const History& history,
                      const std::vector<int>& people, Day today, int months,
                      const std::unordered_set<int>& hidden) {
    const Day limit = monthsBefore(today, months);
    const std::vector<std::string> own = addressesOf(database, people);
    const std::int64_t strongest = database.strongestWeight();
    const Thresholds thresholds = database.thresholds();
    LostSight lost;
    for (const auto& [id, weight] : weightsOf(database, people)) {
        const Strength strength = strengthOf(weight, strongest, thresholds);
        if (strength == Strength::Weak)
            continue;
        const Day last = history.between(own, addressesOf(database, {id})).last;
        if (last == 0)
            ++lost.undated;
        else if (last >= limit)
            continue;
        else if (hidden.contains(id))
            ++lost.hidden;
        else
            lost.contacts.push_back({id, weight, strength, last});
    }
    std::sort(lost.contacts.begin(), lost.contacts.end(),
              [](const LostContact& a, const LostContact& b) {
                  return std::tie(b.weight, b.last, a.id) < std::tie(a.weight, a.last, b.id);
              });
    return lost;
}

std::vector<int> ownersOf(const Database& database, const std::vector<std::string>& addresses) {
    std::vector<int> owners;
    for (const std::string& address : addresses)
        for (const int owner : database.ownersOf(address))
            if (std::find(owners.begin(), owners.end(), owner) == owners.end())
                owners.push_back(owner);
    return owners;
}

}  // namespace pelk
