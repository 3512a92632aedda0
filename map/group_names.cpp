#include "map/group_names.h"

#include <map>
#include <set>

#include "platform/utf8.h"
#include "views/registered_domain.h"

namespace pelk {
namespace {

/// The number of people with an address in each domain.
using DomainCounts = std::map<std::string, std::size_t>;

struct GroupFacts {
    std::size_t people = 0;
    const GraphPerson* strongest = nullptr;
    DomainCounts domains;
};

void addDomains(const Contact& contact, DomainCounts& counts) {
    std::set<std::string> domains;
    for (const std::string& address : contact.addresses)
        if (const std::size_t at = address.rfind('@'); at != std::string::npos)
            domains.emplace(registeredDomain(std::string_view(address).substr(at + 1)));
    for (const std::string& domain : domains)
        ++counts[domain];
}

void addPerson(const GraphPerson& person, GroupFacts& group) {
    ++group.people;
    if (group.strongest == nullptr || person.mails > group.strongest->mails)
        group.strongest = &person;
    addDomains(person.contact, group.domains);
}

std::string nameOfGroup(const GroupFacts& group, const DomainCounts& everybody) {
    for (const auto& [domain, people] : group.domains)
        if (group.people > 1 && 2 * people > group.people && 2 * people > everybody.at(domain))
            return displayText(domain);
    return labelOf(group.strongest->contact);
}

}  // namespace

std::vector<std::string> groupNames(const Graph& graph, const Groups& groups) {
    std::vector<GroupFacts> facts(groupSizes(groups).size());
    DomainCounts everybody;
    for (std::size_t number = 0; number < groups.size(); ++number)
        if (groups[number] != kNoGroup) {
            addPerson(graph.people[number], facts[groups[number]]);
            addDomains(graph.people[number].contact, everybody);
        }
    std::vector<std::string> names;
    names.reserve(facts.size());
    for (const GroupFacts& group : facts)
        names.push_back(nameOfGroup(group, everybody));
    return names;
}

}  // namespace pelk
