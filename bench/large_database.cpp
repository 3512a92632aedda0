#include "bench/large_database.h"

#include <algorithm>
#include <set>
#include <utility>

#include "bench/people.h"
#include "bench/random.h"

namespace pelk {
namespace {

std::string numberAttribute(const char* name, std::size_t value) {
    return std::string(" ") + name + "=\"" + std::to_string(value) + '"';
}

std::string contactElement(std::size_t id) {
    const Person person = makePerson(id - 1);
    return "<contact" + numberAttribute("id", id) + " name=\"" + person.name +
           "\"><emails><email value=\"" + person.address + "\"/></emails></contact>";
}

std::string relationElement(std::size_t part1, std::size_t part2, std::size_t weight) {
    return "<relation" + numberAttribute("part1", part1) + numberAttribute("part2", part2) +
           numberAttribute("weight", weight) + "/>";
}

}  // namespace

std::string makeLargeDocument(std::size_t contacts, std::size_t relations) {
    std::string xml = "<pelkDB date=\"1970-01-01T00:00:00\" totalMails=\"500000\"" +
                      numberAttribute("totalContacts", contacts) +
                      " maxInd=\"50\" minInd=\"5\"><contacts>";
    for (std::size_t id = 1; id <= contacts; ++id)
        xml += contactElement(id);
    xml += "</contacts><relations total=\"0\">";
    Random random;
    std::set<std::pair<std::size_t, std::size_t>> pairs;
    while (pairs.size() < relations) {
        const std::size_t one = 1 + random.rank(contacts);
        const std::size_t other = 1 + random.below(contacts);
        if (one != other && pairs.insert(std::minmax(one, other)).second)
            xml +=
                relationElement(std::min(one, other), std::max(one, other), 1 + random.rank(5000));
    }
    return xml + "</relations></pelkDB>";
}

}  // namespace pelk
