#include "db/document_check.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "db/numbers.h"
#include "db/queries.h"

namespace pelk {
namespace {

[[noreturn]] void refuse(const std::string& fault) {
    throw Error("It is not a sound contact database: " + fault + ".");
}

bool isWholeNumber(std::string_view text) {
    constexpr std::size_t longest = 15;
    return !text.empty() && text.size() <= longest && (text == "0" || text.front() != '0') &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::int64_t requireWholeNumber(const XmlElement& element, const char* attribute) {
    const std::string text = element.text(attribute);
    if (!isWholeNumber(text))
        refuse("\"" + text + "\" stands for the number " + attribute + " of an element " +
               element.name());
    return readInteger(text);
}

void requireDateStamp(const std::string& stamp) {
    constexpr std::string_view form = "dddd-dd-ddTdd:dd:dd";
    bool matches = stamp.size() == form.size();
    for (std::size_t at = 0; matches && at < form.size(); ++at)
        matches = form[at] == 'd' ? stamp[at] >= '0' && stamp[at] <= '9' : stamp[at] == form[at];
    if (!matches)
        refuse("its date is \"" + stamp + "\"");
}

/// Checks the contacts one by one, and remembers their ids.
class ContactCheck {
 public:
    ContactCheck(std::int64_t highestId, const Language& language)
        : highestId_(highestId), language_(language) {}

    void operator()(const XmlElement& contact) {
        const std::string text = contact.text("id");
        const int id = plainContactId(text).value_or(0);
        if (id < 1 || id > highestId_)
            refuse("a contact has the id \"" + text + "\"");
        if (!ids_.insert(id).second)
            refuse("two contacts have the id " + text);
        for (const XmlElement& email : contact.select("emails/email"))
            checkAddress(email.text("value"), text);
    }

    bool knows(std::int64_t id) const { return ids_.contains(id); }

 private:
    void checkAddress(const std::string& address, const std::string& idText) {
        if (address.empty() || address != language_.lowerCase(address))
            refuse("contact " + idText + " has the address \"" + address + "\"");
        if (!addresses_.insert(address).second)
            refuse("the address " + address + " stands twice");
    }

    const std::int64_t highestId_;
    const Language& language_;
    std::unordered_set<std::int64_t> ids_;
    std::unordered_set<std::string> addresses_;
};

}  // namespace

void requireSoundDocument(const XmlElement& root, const Language& language) {
    requireDateStamp(root.text("date"));
    requireWholeNumber(root, "totalMails");
    for (const char* threshold : {"maxInd", "minInd"})
        if (requireWholeNumber(root, threshold) > 100)
            refuse(std::string("its threshold ") + threshold + " is over 100");

    ContactCheck checkContact(requireWholeNumber(root, "totalContacts"), language);
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
