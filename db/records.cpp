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
    for (const XmlElement& email : emailElementsOf(contact))
        if (std::optional<std::string> value = email.attribute("value"))
            addresses.push_back(std::move(*value));
    return addresses;
}

std::vector<XmlElement> emailElementsOf(const XmlElement& contact) {
    std::vector<XmlElement> found;
    forEachChild(contact, "emails", [&found](const XmlElement& emails) {
        forEachChild(emails, "email",
                     [&found](const XmlElement& email) { found.push_back(email); });
    });
    return found;
}

}  // namespace pelk
