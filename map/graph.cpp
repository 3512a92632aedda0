#include "map/graph.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "platform/utf8.h"

namespace pelk {
namespace {

bool hasEnds(const GraphLink& link, std::uint32_t from, std::uint32_t to) {
    return link.from == from && link.to == to;
}

/// Sorts by the ends and keeps the first link of each pair.
void putInOrder(std::vector<GraphLink>& links) {
    std::stable_sort(links.begin(), links.end(), [](const GraphLink& a, const GraphLink& b) {
        return std::tie(a.from, a.to) < std::tie(b.from, b.to);
    });
    const auto isSamePair = [](const GraphLink& a, const GraphLink& b) {
        return hasEnds(a, b.from, b.to);
    };
    links.erase(std::unique(links.begin(), links.end(), isSamePair), links.end());
}

/// By id: the person's number.
std::vector<std::uint32_t> numbersById(const Graph& graph) {
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(kMaxContactId) + 1, kNobody);
    for (std::size_t number = 0; number < graph.people.size(); ++number)
        numbers[static_cast<std::size_t>(graph.people[number].contact.id)] =
            static_cast<std::uint32_t>(number);
    return numbers;
}

void readPeople(const Database& database, const std::unordered_set<int>& without, Graph& graph) {
    database.forEachContact([&](const Contact& contact) {
        if (contact.id > 0 && contact.id <= kMaxContactId && !without.contains(contact.id))
            graph.people.push_back({contact});
    });
    const auto idOf = [](const GraphPerson& person) { return person.contact.id; };
    std::stable_sort(
        graph.people.begin(), graph.people.end(),
        [&idOf](const GraphPerson& a, const GraphPerson& b) { return idOf(a) < idOf(b); });
    const auto last = std::unique(
        graph.people.begin(), graph.people.end(),
        [&idOf](const GraphPerson& a, const GraphPerson& b) { return idOf(a) == idOf(b); });
    graph.people.erase(last, graph.people.end());
}

void readLinks(const Database& database, Strength from, Graph& graph) {
    const std::vector<std::uint32_t> numbers = numbersById(graph);
    const std::int64_t strongest = database.strongestWeight();
    const Thresholds thresholds = database.thresholds();
    for (const Relation& relation : database.relations()) {
        const auto [a, b] = std::minmax(numbers[static_cast<std::size_t>(relation.part1)],
                                        numbers[static_cast<std::size_t>(relation.part2)]);
        const std::int64_t weight = roundToInteger(relation.weight);
        const Strength strength = strengthOf(weight, strongest, thresholds);
        if (a != b && b != kNobody && weight > 0 && strength <= from)
            graph.links.push_back({a, b, static_cast<double>(weight), strength});
    }
    putInOrder(graph.links);
}

Graph readGraph(const Database& database, const GraphFilter& filter) {
    Graph graph;
    readPeople(database, filter.without, graph);
    readLinks(database, filter.from, graph);
    countMails(graph);
    return graph;
}

/// Adds the people of those ids to the numbers, which stay in order and without repetition.
void addAlways(const std::vector<int>& ids, const Graph& graph, std::vector<std::uint32_t>& shown) {
    const std::vector<std::uint32_t> numbers = numbersById(graph);
    for (const int id : ids)
        if (const std::uint32_t number = numbers[static_cast<std::size_t>(id)]; number != kNobody)
            shown.push_back(number);
    std::sort(shown.begin(), shown.end());
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
}

/// Returns the numbers whose `rank` is above 0, highest first and of equal ones the smallest number
/// first, at most `most`.
std::vector<std::uint32_t> bestOf(const std::vector<double>& rank, std::size_t most,
                                  bool withUnranked) {
    std::vector<std::uint32_t> numbers(rank.size());
    std::iota(numbers.begin(), numbers.end(), 0);
    if (!withUnranked)
        std::erase_if(numbers, [&rank](std::uint32_t number) { return !(rank[number] > 0); });
    std::stable_sort(numbers.begin(), numbers.end(),
                     [&rank](std::uint32_t a, std::uint32_t b) { return rank[a] > rank[b]; });
    numbers.resize(std::min(numbers.size(), most));
    return numbers;
}

/// Returns the part with a person, who becomes number 0, and the strongest relations to it.
Graph nearestTo(const Graph& graph, std::uint32_t middle, std::size_t people) {
    std::vector<double> nearness(graph.people.size());
    for (const GraphLink& link : graph.links)
        if (link.from == middle || link.to == middle)
            nearness[link.from == middle ? link.to : link.from] = link.weight;
    std::vector<std::uint32_t> shown = bestOf(nearness, people, false);
    std::sort(shown.begin(), shown.end());
    shown.insert(shown.begin(), middle);
    return partOf(graph, shown);
}

}  // namespace

Graph makeGraph(const Database& database, GraphFilter filter) {
    for (const int id : filter.always)
        filter.without.erase(id);
    const Graph graph = readGraph(database, filter);
    std::vector<double> mails;
    mails.reserve(graph.people.size());
    for (const GraphPerson& person : graph.people)
        mails.push_back(person.mails);
    std::vector<std::uint32_t> shown =
        bestOf(mails, filter.people.value_or(graph.people.size()), filter.from == Strength::Weak);
    addAlways(filter.always, graph, shown);
    return partOf(graph, shown);
}

Graph makeCircle(const Database& database, int contact, GraphFilter filter) {
    filter.without.erase(contact);
    const Graph graph = readGraph(database, filter);
    const std::uint32_t middle = numbersById(graph)[static_cast<std::size_t>(contact)];
    return nearestTo(graph, middle, filter.people.value_or(graph.people.size()));
}

Graph strongestAround(const Graph& circle, std::size_t people) {
    return nearestTo(circle, 0, people);
}

Graph partOf(const Graph& graph, const std::vector<std::uint32_t>& people) {
    std::vector<std::uint32_t> renumbered(graph.people.size(), kNobody);
    Graph part;
    for (const std::uint32_t number : people) {
        renumbered[number] = static_cast<std::uint32_t>(part.people.size());
        part.people.push_back(graph.people[number]);
    }
    for (const GraphLink& link : graph.links) {
        const auto [from, to] = std::minmax(renumbered[link.from], renumbered[link.to]);
        if (to != kNobody)
            part.links.push_back({from, to, link.weight, link.strength});
    }
    putInOrder(part.links);
    countMails(part);
    return part;
}

void countMails(Graph& graph) {
    for (GraphPerson& person : graph.people)
        person.mails = 0;
    for (const GraphLink& link : graph.links) {
        graph.people[link.from].mails += link.weight;
        graph.people[link.to].mails += link.weight;
    }
}

std::string idTextOf(const Graph& graph, std::uint32_t person) {
    return std::to_string(graph.people[person].contact.id);
}

std::string addressOf(const Contact& contact) {
    return contact.addresses.empty() ? "" : contact.addresses.front();
}

std::string labelOf(const Contact& contact) {
    for (const std::string& text : {contact.name, addressOf(contact)}) {
        std::string label = displayText(text);
        if (label.find_first_not_of(' ') != std::string::npos)
            return label;
    }
    return std::to_string(contact.id);
}

}  // namespace pelk
