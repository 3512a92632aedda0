#pragma once
// Contacts and relations as values, and how they are read from their elements in the document.

#include <string>
#include <string_view>
#include <vector>

#include "platform/xml.h"

namespace pelk {

struct Contact {
    int id = 0;
    /// Empty when the contact has no name.
    std::string name;
    /// In document order.
    std::vector<std::string> addresses;
};

struct Relation {
    /// The ids of its two ends; 0 for one that is no contact's id.
    int part1 = 0;
    int part2 = 0;
    /// The number of e-mails counted between the two.
    double weight = 0;

    /// The other end of a relation of the contact `id`; the same contact when it is related to
    /// itself. Throws `Error` when `id` is neither end.
    int partnerOf(int id) const;
};

Contact readContact(const XmlElement& element);

/// The addresses of a contact's element, in document order.
std::vector<std::string> addressesOf(const XmlElement& contact);

/// Calls the visitor with each child of that name, in document order.
template <typename Visit>
void forEachChild(const XmlElement& parent, std::string_view name, const Visit& visit) {
    for (XmlElement child = parent.firstChild(); child; child = child.nextSibling())
        if (child.name() == name)
            visit(child);
}

/// Calls the visitor with each element in which an address of the contact stands.
template <typename Visit>
void forEachEmail(const XmlElement& contact, const Visit& visit) {
    forEachChild(contact, "emails",
                 [&visit](const XmlElement& emails) { forEachChild(emails, "email", visit); });
}

}  // namespace pelk
