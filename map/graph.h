#pragma once
// People and the relations between them as flat arrays, for pictures and for other programs.
//
// A person's number is the position in `people`. Numbers follow the ids, and links follow the
// numbers of their ends, so that the same document always gives the same arrays.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "db/database.h"
#include "views/strength.h"

namespace pelk {

/// The number of no person.
inline constexpr std::uint32_t kNobody = UINT32_MAX;

struct GraphPerson {
    Contact contact;
    /// The sum of the weights of the person's links.
    double mails = 0;
};

struct GraphLink {
    /// The numbers of both ends; the first is smaller.
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    /// The number of e-mails, a whole number above 0.
    double weight = 0;
    Strength strength = Strength::Weak;
};

struct Graph {
    std::vector<GraphPerson> people;
    std::vector<GraphLink> links;
};

struct GraphFilter {
    /// The weakest relations to include. Above `Weak`, people without such a relation are left out.
    Strength from = Strength::Weak;
    /// The most people to include: those with most e-mails, and of equal ones those with the
    /// smallest ids. Nothing means everybody.
    std::optional<std::size_t> people;
    /// The ids of contacts to leave out, such as mailing lists.
    std::unordered_set<int> without;
    /// The ids of contacts to include whatever the rest says, such as those of a chain.
    std::vector<int> always{};
};

/// Returns the people and relations that pass the filter. Relations without an e-mail, of a contact
/// with itself or with an unknown contact are left out; of several relations of a pair, which only
/// a foreign document has, the first one counts.
Graph makeGraph(const Database& database, GraphFilter filter);

/// Returns a contact and those people with the strongest relations to it that pass the filter,
/// which counts them without the contact, and all links among them that pass. Person 0 is the
/// contact, even if the filter leaves it out. Requires: the contact exists.
Graph makeCircle(const Database& database, int contact, GraphFilter filter);

/// Returns the part of a circle with those `people` who have the strongest relations to person 0.
Graph strongestAround(const Graph& circle, std::size_t people);

/// Returns the part of a graph with the people of those numbers, which become 0, 1 and so on, and
/// with the links between them.
Graph partOf(const Graph& graph, const std::vector<std::uint32_t>& people);

/// Sets the sums of e-mails from the links.
void countMails(Graph& graph);

/// Returns the id of the person's contact.
std::string idTextOf(const Graph& graph, std::uint32_t person);

/// Returns the first address; empty when there is none.
std::string addressOf(const Contact& contact);

/// Returns the name as one line without changes of the writing direction; an address when there is
/// no name, and else the id.
std::string labelOf(const Contact& contact);

}  // namespace pelk
