#include "db/records.h"

#include <optional>
#include <utility>

#include "db/numbers.h"

namespace pelk {

int Relation::partnerOf(int id) const {
    if (part1 == id)
        return part2;
    if (part2 == id)
        return part1;
    throw Error("unreachable code !");
}

Contact readContact(const XmlElement& element) {
    return {readContactId(element.text("id")), element.text("name"), addressesOf(element)};
}

std::vector<std::string> addressesOf(const XmlElement& contact) {
    std::vector<std::string> addresses;
    forEachEmail(contact, [&addresses](const XmlElement& email) {
        if (std::optional<std::string> value = email.attribute("value"))
            addresses.push_back(std::move(*value));
    });
    return addresses;
}

}  // namespace pelk
