#pragma once
// Contacts and relations as values, and functions that read them from the document's elements.

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
    /// The ids of the two ends; 0 for an invalid id.
    int part1 = 0;
    int part2 = 0;
    /// The number of e-mails counted between the two.
    double weight = 0;

    /// Returns the end that is not `id`; `id` itself when both ends are equal. Throws `Error` when
    /// `id` is neither end.
    int partnerOf(int id) const;
};

Contact readContact(const XmlElement& element);

/// Returns the addresses of a contact's element, in document order.
std::vector<std::string> addressesOf(const XmlElement& contact);

/// Calls `visit` with each child of that name, in document order.
template <typename Visit>
void forEachChild(const XmlElement& parent, std::string_view name, const Visit& visit) {
    for (XmlElement child = parent.firstChild(); child; child = child.nextSibling())
        if (child.name() == name)
            visit(child);
}

/// Calls `visit` with each element that holds an address of the contact.
template <typename Visit>
void forEachEmail(const XmlElement& contact, const Visit& visit) {
    forEachChild(contact, "emails",
                 [&visit](const XmlElement& emails) { forEachChild(emails, "email", visit); });
}

}  // namespace pelk
