#include "db/database.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "db/damaged_data.h"
#include "db/queries.h"

namespace pelk {
namespace {

/// Returns the only element that the query selects. Throws `DamagedData` for none or several.
XmlElement onlyElement(const XmlElement& root, const char* query) {
    const std::vector<XmlElement> found = root.select(query);
    if (found.size() != 1)
        throw DamagedData("It is not a contact database: it holds " + std::to_string(found.size()) +
                          " elements " + query + " instead of one.");
    return found.front();
}

/// Refuses what the query for an address cannot express: an apostrophe would end its string.
void requireNoApostrophe(const std::string& address) {
    if (address.find('\'') != std::string::npos)
        throw MalformedQuery(queries::contactByAddress(address));
}

/// Returns the first child of that name, after creating one if there is none.
XmlElement childOrNew(const XmlElement& parent, const char* name) {
    for (XmlElement child = parent.firstChild(); child; child = child.nextSibling())
        if (child.name() == name)
            return child;
    return parent.appendElement(name);
}

}  // namespace

ContactLimitReached::ContactLimitReached()
    : Error("The database is full: all of its " + std::to_string(kMaxContactId) +
            " contact numbers are taken.") {}

Database::Database(std::unique_ptr<XmlDocument> document) : document_(std::move(document)) {
    root_ = document_->root();
    if (!root_ || root_.name() != "pelkDB")
        throw DamagedData("It is not a contact database: its root element is not pelkDB.");
    contactsContainer_ = onlyElement(root_, queries::kContactsContainer);
    relationsContainer_ = onlyElement(root_, queries::kRelationsContainer);
    contacts_ = ContactIndex(contactsContainer_);
    relations_ = RelationIndex(relationsContainer_);
}

std::optional<std::string> Database::putCountRight() {
    const int highest = contacts_.highestId();
    const std::string before = root_.text("totalContacts");
    if (totalContacts() >= highest && totalContacts() <= kMaxContactId)
        return std::nullopt;
    root_.setAttribute("totalContacts", std::to_string(highest));
    ++revision_;
    return "The count of contacts, totalContacts, was \"" + before +
           "\", which would assign an id twice or not at all. It has been set to " +
           std::to_string(highest) + ", the highest id in use.";
}

void Database::setDate(const std::string& stamp) {
    root_.setAttribute("date", stamp);
    ++revision_;
}

void Database::countMails(std::int64_t mails) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    const std::int64_t before = readInteger(totalMails());
    const std::int64_t counted = std::max<std::int64_t>(mails, 0);
    const std::int64_t sum = before > kMost - counted ? kMost : before + counted;
    root_.setAttribute("totalMails", std::to_string(sum));
    ++revision_;
}

Thresholds Database::thresholds() const {
    return {readNumber(root_.text("maxInd")), readNumber(root_.text("minInd"))};
}

void Database::setThresholds(int strong, int weak) {
    root_.setAttribute("maxInd", std::to_string(strong));
    root_.setAttribute("minInd", std::to_string(weak));
    ++revision_;
}

void Database::forEachContact(const std::function<void(const Contact&)>& visit) const {
    forEachChild(contactsContainer_, "contact",
                 [&visit](const XmlElement& contact) { visit(readContact(contact)); });
}

std::optional<Contact> Database::contact(int id) const {
    const XmlElement element = contacts_.byId(id);
    return element ? std::optional(readContact(element)) : std::nullopt;
}

std::string Database::nameOf(int id) const {
    const XmlElement element = contacts_.byId(id);
    return element ? element.text("name") : std::string();
}

int Database::contactIdByAddress(const std::string& address) const {
    requireNoApostrophe(address);
    return contacts_.idByAddress(address);
}

std::vector<int> Database::ownersOf(const std::string& address) const {
    return contacts_.idsByAddress(address);
}

/// Returns an id that no contact has ever had.
int Database::takeNextId() {
    const std::int64_t last = totalContacts();
    if (last >= kMaxContactId)
        throw ContactLimitReached();
    const std::int64_t id = last + 1;
    root_.setAttribute("totalContacts", std::to_string(id));
    ++revision_;
    return static_cast<int>(id);
}

int Database::addContact(const std::string& name, const std::string& address) {
    const int id = takeNextId();
    const XmlElement element = contactsContainer_.appendElement("contact");
    element.setAttribute("id", std::to_string(id));
    element.appendElement("emails").appendElement("email").setAttribute("value", address);
    if (!name.empty())
        element.setAttribute("name", name);
    contacts_.append(element);
    return id;
}

int Database::addCopyOfContact(const XmlElement& original) {
    const int id = takeNextId();
    const XmlElement element = contactsContainer_.appendCopy(original);
    element.setAttribute("id", std::to_string(id));
    contacts_.append(element);
    return id;
}

void Database::addAddresses(int id, const std::vector<std::string>& addresses) {
    const XmlElement element = contacts_.byId(id);
    if (!element)
        return;
    std::vector<std::string> known = addressesOf(element);
    for (const std::string& address : addresses) {
        if (std::find(known.begin(), known.end(), address) != known.end())
            continue;
        childOrNew(element, "emails").appendElement("email").setAttribute("value", address);
        contacts_.addAddress(id, address);
        known.push_back(address);
        ++revision_;
    }
}

bool Database::renameContact(int id, const std::string& name) {
    const XmlElement element = contacts_.byId(id);
    if (!element)
        return false;
    element.setAttribute("name", name);
    ++revision_;
    return true;
}

void Database::moveAddresses(int fromId, int toId) {
    const XmlElement from = contacts_.byId(fromId);
    const XmlElement to = contacts_.byId(toId);
    if (!from || !to || fromId == toId)
        return;
    contacts_.moveAddresses(fromId, toId);
    const XmlElement receiver = childOrNew(to, "emails");
    std::vector<XmlElement> moved;
    forEachEmail(from, [&moved](const XmlElement& email) { moved.push_back(email); });
    for (const XmlElement& email : moved) {
        receiver.appendCopy(email);
        email.remove();
    }
    ++revision_;
}

void Database::removeContacts(const std::vector<int>& ids) {
    for (const int id : ids) {
        // Contacts with an unreadable id have id 0, so 0 identifies none of them.
        const XmlElement element = id > 0 ? contacts_.take(id) : XmlElement();
        if (!element)
            continue;
        element.remove();
        for (const XmlElement& relation : relations_.takeAllOf(id))
            relation.remove();
        ++revision_;
    }
}

std::vector<Relation> Database::relations() const {
    std::vector<Relation> relations;
    relations.reserve(relations_.count());
    relations_.forEach(
        [&relations](const RelationEntry& entry) { relations.push_back(entry.relation); });
    return relations;
}

std::vector<Relation> Database::relationsOf(int id) const {
    std::vector<Relation> relations;
    relations_.forEachOf(
        id, [&relations](const RelationEntry& entry) { relations.push_back(entry.relation); });
    return relations;
}

void Database::addMailBetween(int id, int otherId) {
    if (id != 0 && otherId != 0 && id != otherId)
        addRelationWeight(id, otherId, 1);
}

std::optional<Relation> Database::relationOfPair(int id, int otherId) const {
    const auto [smaller, larger] = std::minmax(id, otherId);
    const RelationEntry* const entry = relations_.ofPair(smaller, larger);
    return entry != nullptr ? std::optional(entry->relation) : std::nullopt;
}

void Database::addRelationWeight(int id, int otherId, std::int64_t weight) {
    if (id == otherId)
        throw Error("Unreachable code, addrelationweight");
    const auto [smaller, larger] = std::minmax(id, otherId);
    ++revision_;
    if (RelationEntry* const entry = relations_.ofPair(smaller, larger)) {
        double& sum = entry->relation.weight;
        sum = std::trunc(sum) + static_cast<double>(weight);
        entry->element.setAttribute("weight", std::to_string(roundToInteger(sum)));
        return;
    }
    XmlElement element = relationsContainer_.appendElement("relation");
    element.setAttribute("part1", std::to_string(smaller));
    element.setAttribute("part2", std::to_string(larger));
    element.setAttribute("weight", std::to_string(weight));
    relations_.append(std::move(element));
}

void Database::removeRelation(int id, int otherId) {
    const auto [smaller, larger] = std::minmax(id, otherId);
    const XmlElement element = relations_.takeOfPair(smaller, larger);
    if (!element)
        return;
    element.remove();
    ++revision_;
}

std::int64_t Database::strongestWeight() const {
    std::int64_t strongest = 0;
    relations_.forEach([&strongest](const RelationEntry& entry) {
        if (entry.relation.weight > static_cast<double>(strongest))
            strongest = roundToInteger(entry.relation.weight);
    });
    return strongest;
}

void Database::replaceContent(Database&& other) {
    const std::uint64_t revision = revision_;
    *this = std::move(other);
    revision_ = revision + 1;
}

std::vector<XmlElement> Database::contactElements() const {
    return root_.select(queries::kContacts);
}

}  // namespace pelk
