#include "db/database.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "db/queries.h"

namespace pelk {
namespace {

/// Refuses what the query for an address cannot express: an apostrophe would end its string.
void requireNoApostrophe(const std::string& address) {
    if (address.find('\'') != std::string::npos)
        throw MalformedQuery(queries::contactByAddress(address));
}

}  // namespace

ContactLimitReached::ContactLimitReached()
    : Error("The database is full: all of its " + std::to_string(kMaxContactId) +
            " contact numbers are taken.") {}

std::optional<std::string> Database::putCountRight() {
    const int highest = content_.contacts.highestId();
    const std::string before = content_.root.text("totalContacts");
    if (totalContacts() >= highest && totalContacts() <= kMaxContactId)
        return std::nullopt;
    journal_.setAttribute(content_.root, "totalContacts", std::to_string(highest));
    ++revision_;
    return "The count of contacts, totalContacts, was \"" + before +
           "\", which would assign an id twice or not at all. It has been set to " +
           std::to_string(highest) + ", the highest id in use.";
}

void Database::setDate(const std::string& stamp) {
    journal_.setAttribute(content_.root, "date", stamp);
    ++revision_;
}

void Database::countMails(std::int64_t mails) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const std::int64_t before = readInteger(totalMails());
    const std::int64_t counted = std::max<std::int64_t>(mails, 0);
    const std::int64_t sum = before > kMost - counted ? kMost : before + counted;
    journal_.setAttribute(content_.root, "totalMails", std::to_string(sum));
    ++revision_;
}

Thresholds Database::thresholds() const {
    return {readNumber(content_.root.text("maxInd")), readNumber(content_.root.text("minInd"))};
}

void Database::setThresholds(int strong, int weak) {
    journal_.setAttribute(content_.root, "maxInd", std::to_string(strong));
    journal_.setAttribute(content_.root, "minInd", std::to_string(weak));
    ++revision_;
}

void Database::forEachContact(const std::function<void(const Contact&)>& visit) const {
    forEachChild(content_.contactsContainer, "contact",
                 [&visit](const XmlElement& contact) { visit(readContact(contact)); });
}

std::optional<Contact> Database::contact(int id) const {
    const XmlElement element = content_.contacts.byId(id);
    return element ? std::optional(readContact(element)) : std::nullopt;
}

std::string Database::nameOf(int id) const {
    const XmlElement element = content_.contacts.byId(id);
    return element ? element.text("name") : std::string();
}

int Database::contactIdByAddress(const std::string& address) const {
    requireNoApostrophe(address);
    return content_.contacts.idByAddress(address);
}

std::vector<int> Database::ownersOf(const std::string& address) const {
    return content_.contacts.idsByAddress(address);
}

/// Returns an id that no contact has ever had.
int Database::takeNextId() {
    const std::int64_t last = totalContacts();
    if (last >= kMaxContactId)
        throw ContactLimitReached();
    const std::int64_t id = last + 1;
    journal_.setAttribute(content_.root, "totalContacts", std::to_string(id));
    ++revision_;
    return static_cast<int>(id);
}

int Database::addContact(const std::string& name, const std::string& address) {
    const int id = takeNextId();
    const XmlElement element = content_.contactsContainer.appendElement("contact");
    element.setAttribute("id", std::to_string(id));
    element.appendElement("emails").appendElement("email").setAttribute("value", address);
    if (!name.empty())
        element.setAttribute("name", name);
    journal_.noteAdded(content_, element);
    content_.contacts.append(element);
    return id;
}

int Database::addCopyOfContact(const XmlElement& original) {
    const int id = takeNextId();
    const XmlElement element = content_.contactsContainer.appendCopy(original);
    element.setAttribute("id", std::to_string(id));
    journal_.noteAdded(content_, element);
    content_.contacts.append(element);
    return id;
}

/// Returns the element that holds the contact's addresses, after creating one if there is none.
XmlElement Database::emailsOf(const XmlElement& contact) {
    for (XmlElement child = contact.firstChild(); child; child = child.nextSibling())
        if (child.name() == "emails")
            return child;
    XmlElement emails = contact.appendElement("emails");
    journal_.noteAdded(content_, emails);
    return emails;
}

void Database::addAddresses(int id, const std::vector<std::string>& addresses) {
    const XmlElement element = content_.contacts.byId(id);
    if (!element)
        return;
    std::vector<std::string> known = addressesOf(element);
    for (const std::string& address : addresses) {
        if (std::find(known.begin(), known.end(), address) != known.end())
            continue;
        const XmlElement email = emailsOf(element).appendElement("email");
        email.setAttribute("value", address);
        journal_.noteAdded(content_, email);
        content_.contacts.addAddress(id, address);
        known.push_back(address);
        ++revision_;
    }
}

bool Database::renameContact(int id, const std::string& name) {
    const XmlElement element = content_.contacts.byId(id);
    if (!element)
        return false;
    journal_.setAttribute(element, "name", name);
    ++revision_;
    return true;
}

void Database::moveAddresses(int fromId, int toId) {
    const XmlElement from = content_.contacts.byId(fromId);
    const XmlElement to = content_.contacts.byId(toId);
    if (!from || !to || fromId == toId)
        return;
    content_.contacts.moveAddresses(fromId, toId);
    const XmlElement receiver = emailsOf(to);
    std::vector<XmlElement> moved;
    forEachEmail(from, [&moved](const XmlElement& email) { moved.push_back(email); });
    for (const XmlElement& email : moved) {
        journal_.noteAdded(content_, receiver.appendCopy(email));
        journal_.remove(content_, email);
    }
    ++revision_;
}

void Database::removeContacts(const std::vector<int>& ids) {
    for (const int id : ids) {
        // Contacts with an unreadable id have id 0, so 0 identifies none of them.
        const XmlElement element = id > 0 ? content_.contacts.take(id) : XmlElement();
        if (!element)
            continue;
        losses_ += addressesOf(element).empty() ? 0 : 1;
        journal_.remove(content_, element);
        for (const XmlElement& relation : content_.relations.takeAllOf(id))
            journal_.remove(content_, relation);
        ++revision_;
    }
}

std::vector<Relation> Database::relations() const {
    std::vector<Relation> relations;
    relations.reserve(content_.relations.count());
    content_.relations.forEach(
        [&relations](const RelationEntry& entry) { relations.push_back(entry.relation); });
    return relations;
}

std::vector<Relation> Database::relationsOf(int id) const {
    std::vector<Relation> relations;
    content_.relations.forEachOf(
        id, [&relations](const RelationEntry& entry) { relations.push_back(entry.relation); });
    return relations;
}

void Database::addMailBetween(int id, int otherId) {
    if (id != 0 && otherId != 0 && id != otherId)
        addRelationWeight(id, otherId, 1);
}

std::optional<Relation> Database::relationOfPair(int id, int otherId) const {
    const auto [smaller, larger] = std::minmax(id, otherId);
    const RelationEntry* const entry = content_.relations.ofPair(smaller, larger);
    return entry != nullptr ? std::optional(entry->relation) : std::nullopt;
}

void Database::addRelationWeight(int id, int otherId, std::int64_t weight) {
    if (id == otherId)
        throw Error("Unreachable code, addrelationweight");
    const auto [smaller, larger] = std::minmax(id, otherId);
    ++revision_;
    if (RelationEntry* const entry = content_.relations.ofPair(smaller, larger)) {
        double& sum = entry->relation.weight;
        sum = std::trunc(sum) + static_cast<double>(weight);
        journal_.setAttribute(entry->element, "weight", std::to_string(roundToInteger(sum)));
        return;
    }
    XmlElement element = content_.relationsContainer.appendElement("relation");
    element.setAttribute("part1", std::to_string(smaller));
    element.setAttribute("part2", std::to_string(larger));
    element.setAttribute("weight", std::to_string(weight));
    journal_.noteAdded(content_, element);
    content_.relations.append(std::move(element));
}

void Database::removeRelation(int id, int otherId) {
    const auto [smaller, larger] = std::minmax(id, otherId);
    const XmlElement element = content_.relations.takeOfPair(smaller, larger);
    if (!element)
        return;
    journal_.remove(content_, element);
    ++revision_;
}

std::int64_t Database::strongestWeight() const {
    std::int64_t strongest = 0;
    content_.relations.forEach([&strongest](const RelationEntry& entry) {
        if (entry.relation.weight > static_cast<double>(strongest))
            strongest = roundToInteger(entry.relation.weight);
    });
    return strongest;
}

void Database::replaceContent(Database&& other) {
    journal_.replace(content_, std::move(other.content_));
    ++revision_;
    ++losses_;
}

void Database::inStep(const std::string& name, const std::function<void()>& edits) {
    // The edits may be reverted.
    ++revision_;
    journal_.inStep(name, content_, edits);
}

bool Database::undo() {
    const bool undone = journal_.undo(content_);
    revision_ += undone ? 1 : 0;
    return undone;
}

bool Database::redo() {
    const bool redone = journal_.redo(content_);
    revision_ += redone ? 1 : 0;
    return redone;
}

std::vector<XmlElement> Database::contactElements() const {
    return content_.root.select(queries::kContacts);
}

}  // namespace pelk
