#include "db/document_check.h"

#include <charconv>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "db/date_stamp.h"
#include "db/numbers.h"
#include "db/queries.h"
#include "db/records.h"
#include "db/thresholds.h"
#include "platform/ascii.h"

namespace pelk {
namespace {

[[noreturn]] void refuse(const std::string& fault) {
    throw Error("It is not a sound contact database: " + fault + ".");
}

/// Returns the attribute's number. Refuses a text that is not a plain decimal number of 0 or more.
std::int64_t requireWholeNumber(const XmlElement& element, const char* attribute) {
    const std::string text = element.text(attribute);
    const char* const end = text.data() + text.size();
    std::int64_t number = -1;
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 0 || std::to_string(number) != text)
        refuse("the attribute " + std::string(attribute) + " of an element " + element.name() +
               " is \"" + text + "\", which is not a whole number");
    return number;
}

/// Returns 0 for a missing attribute, as the rest of the program does.
std::int64_t wholeNumberOrNone(const XmlElement& element, const char* attribute) {
    return element.attribute(attribute) ? requireWholeNumber(element, attribute) : 0;
}

void requireThresholds(const XmlElement& root) {
    const std::int64_t strong = wholeNumberOrNone(root, "maxInd");
    const std::int64_t weak = wholeNumberOrNone(root, "minInd");
    for (const auto& [name, value] : {std::pair("maxInd", strong), std::pair("minInd", weak)})
        if (value > 100)
            refuse(std::string("its threshold ") + name + " is over 100");
    if (!areAcceptable(static_cast<int>(strong), static_cast<int>(weak)))
        refuse("its threshold maxInd, " + std::to_string(strong) + ", is below minInd, " +
               std::to_string(weak));
}

/// Checks the contacts one by one and collects their ids.
class ContactCheck {
 public:
    void operator()(const XmlElement& contact) {
        const std::string text = contact.text("id");
        const int id = plainContactId(text).value_or(0);
        if (id < 1)
            refuse("a contact has the id \"" + text + "\"");
        if (!ids_.insert(id).second)
            refuse("two contacts have the id " + text);
        for (const std::string& address : addressesOf(contact))
            checkAddress(address, id);
    }

    bool knows(std::int64_t id) const { return ids_.contains(id); }

 private:
    /// Checks the case of ASCII letters only: platforms differ in the lower case of other letters,
    /// and the document may come from another platform.
    void checkAddress(const std::string& address, int id) {
        if (address.empty() || address != lowerAscii(address))
            refuse("contact " + std::to_string(id) + " has the address \"" + address + "\"");
        // After a merge, a contact may list an address twice.
        if (owners_.emplace(address, id).first->second != id)
            refuse("the address " + address + " belongs to two contacts");
    }

    std::unordered_set<std::int64_t> ids_;
    std::unordered_map<std::string, int> owners_;
};

}  // namespace

void requireSoundDocument(const XmlElement& root) {
    if (const std::string date = root.text("date"); !isStamp(date))
        refuse("its date \"" + date + "\" is not valid");
    wholeNumberOrNone(root, "totalMails");
    wholeNumberOrNone(root, "totalContacts");
    requireThresholds(root);

    ContactCheck checkContact;
    for (const XmlElement& contact : root.select(queries::kContacts))
        checkContact(contact);

    std::set<std::pair<std::int64_t, std::int64_t>> pairs;
    for (const XmlElement& relation : root.select(queries::kRelations)) {
        const std::int64_t part1 = requireWholeNumber(relation, "part1");
        const std::int64_t part2 = requireWholeNumber(relation, "part2");
        const std::string name = std::to_string(part1) + " and " + std::to_string(part2);
        requireWholeNumber(relation, "weight");
        if (part1 >= part2 || !checkContact.knows(part1) || !checkContact.knows(part2))
            refuse("a relation joins " + name);
        if (!pairs.emplace(part1, part2).second)
            refuse("two relations join " + name);
    }
}

}  // namespace pelk
