#include "db/database.h"

#include <cmath>
#include <utility>

#include "db/queries.h"

namespace pelk {
namespace {

/// The one element that the query selects. Throws `Error` when it selects none or several.
XmlElement onlyElement(const XmlElement& root, const char* query) {
    const std::vector<XmlElement> found = root.select(query);
    if (found.size() != 1)
        throw Error("It is not a contact database: it holds " + std::to_string(found.size()) +
                    " elements " + query + " in place of one.");
    return found.front();
}

template <typename Visit>
void forEachChild(const XmlElement& parent, std::string_view name, const Visit& visit) {
    for (XmlElement child = parent.firstChild(); child; child = child.nextSibling())
        if (child.name() == name)
            visit(child);
}

/// Calls the visitor with the value of each address of a contact, in document order.
template <typename Visit>
void forEachAddress(const XmlElement& contact, const Visit& visit) {
    forEachChild(contact, "emails", [&visit](const XmlElement& emails) {
        forEachChild(emails, "email", [&visit](const XmlElement& email) {
            if (std::optional<std::string> value = email.attribute("value"))
                visit(std::move(*value));
        });
    });
}

Contact readContact(const XmlElement& element) {
    Contact contact{readContactId(element.text("id")), element.text("name"), {}};
    forEachAddress(element, [&contact](std::string address) {
        contact.addresses.push_back(std::move(address));
    });
    return contact;
}

std::uint32_t pairKey(int part1, int part2) {
    return static_cast<std::uint32_t>(part1) << 16U | static_cast<std::uint32_t>(part2);
}

bool mayBeIndexed(int id) {
    return id >= 0 && id <= kMaxContactId;
}

std::string weightText(double weight) {
    return std::to_string(roundToInteger(weight));
}

}  // namespace

ContactLimitReached::ContactLimitReached()
    : Error("The database is full: all of its " + std::to_string(kMaxContactId) +
            " contact numbers are taken.") {}

int Relation::partnerOf(int id) const {
    if (part1 == id)
        return part2;
    if (part2 == id)
        return part1;
    throw Error("unreachable code !");
}

Database::Database(std::unique_ptr<XmlDocument> document) : document_(std::move(document)) {
    root_ = document_->root();
    if (!root_ || root_.name() != "pelkDB")
        throw Error("It is not a contact database: its root element is not pelkDB.");
    contactsContainer_ = onlyElement(root_, queries::kContactsContainer);
    relationsContainer_ = onlyElement(root_, queries::kRelationsContainer);
    forEachChild(contactsContainer_, "contact",
                 [this](const XmlElement& contact) { indexContact(contact); });
    forEachChild(relationsContainer_, "relation",
                 [this](const XmlElement& relation) { indexRelation(relation); });
}

void Database::setDate(const std::string& stamp) {
    root_.setAttribute("date", stamp);
    ++revision_;
}

void Database::countMail() {
    root_.setAttribute("totalMails", std::to_string(readInteger(totalMails()) + 1));
    ++revision_;
}

Thresholds Database::thresholds() const {
    return {readNumber(root_.text("maxInd")), readNumber(root_.text("minInd"))};
}

void Database::forEachContact(const std::function<void(const Contact&)>& visit) const {
    forEachChild(contactsContainer_, "contact",
                 [&visit](const XmlElement& contact) { visit(readContact(contact)); });
}

std::optional<Contact> Database::contact(int id) const {
    const XmlElement element = contactElement(id);
    return element ? std::optional(readContact(element)) : std::nullopt;
}

int Database::contactIdByAddress(const std::string& address) const {
    const XmlElement element = contactElementByAddress(address);
    return element ? readContactId(element.text("id")) : 0;
}

int Database::addContact(const std::string& name, const std::string& address) {
    const std::int64_t id = readInteger(root_.text("totalContacts")) + 1;
    if (id > kMaxContactId)
        throw ContactLimitReached();
    const std::string idText = std::to_string(id);
    root_.setAttribute("totalContacts", idText);
    const XmlElement element = contactsContainer_.appendElement("contact");
    element.setAttribute("id", idText);
    element.appendElement("emails").appendElement("email").setAttribute("value", address);
    if (!name.empty())
        element.setAttribute("name", name);
    indexContact(element);
    ++revision_;
    return static_cast<int>(id);
}

std::vector<Relation> Database::relations() const {
    std::vector<Relation> relations;
    relations.reserve(relations_.size());
    for (const RelationEntry& entry : relations_)
        relations.push_back(entry.relation);
    return relations;
}

std::vector<Relation> Database::relationsOf(int id) const {
    std::vector<Relation> relations;
    for (const std::uint32_t position : positionsOf(id))
        relations.push_back(relations_[position].relation);
    return relations;
}

void Database::addMailBetween(int id, int otherId) {
    if (id == 0 || otherId == 0 || id == otherId)
        return;
    const auto [smaller, larger] = std::minmax(id, otherId);
    ++revision_;
    if (const auto found = relationByPair_.find(pairKey(smaller, larger));
        found != relationByPair_.end()) {
        RelationEntry& entry = relations_[found->second];
        entry.relation.weight = std::trunc(entry.relation.weight) + 1;
        entry.element.setAttribute("weight", weightText(entry.relation.weight));
        return;
    }
    XmlElement element = relationsContainer_.appendElement("relation");
    element.setAttribute("part1", std::to_string(smaller));
    element.setAttribute("part2", std::to_string(larger));
    element.setAttribute("weight", "1");
    indexRelation(std::move(element));
}

std::int64_t Database::strongestWeight() const {
    std::int64_t strongest = 0;
    for (const RelationEntry& entry : relations_)
        if (entry.relation.weight > static_cast<double>(strongest))
            strongest = roundToInteger(entry.relation.weight);
    return strongest;
}

XmlElement Database::contactElement(int id) const {
    return mayBeIndexed(id) ? contactById_[static_cast<std::size_t>(id)] : XmlElement();
}

XmlElement Database::contactElementByAddress(const std::string& address) const {
    if (address.find('\'') != std::string::npos)
        throw MalformedQuery(queries::contactByAddress(address));
    const auto found = contactByAddress_.find(address);
    return found == contactByAddress_.end() ? XmlElement() : found->second;
}

XmlElement Database::relationElement(int smallerId, int largerId) const {
    const auto found = relationByPair_.find(pairKey(smallerId, largerId));
    return found == relationByPair_.end() ? XmlElement() : relations_[found->second].element;
}

std::vector<XmlElement> Database::relationElementsOf(int id) const {
    std::vector<XmlElement> elements;
    for (const std::uint32_t position : positionsOf(id))
        elements.push_back(relations_[position].element);
    return elements;
}

const Database::Positions& Database::positionsOf(int id) const {
    static const Positions none;
    return mayBeIndexed(id) ? relationsByContact_[static_cast<std::size_t>(id)] : none;
}

/// Where an id or an address stands twice, the first in document order keeps the index entry.
void Database::indexContact(const XmlElement& element) {
    ++contactCount_;
    if (const std::optional<int> id = plainContactId(element.text("id")))
        if (XmlElement& first = contactById_[static_cast<std::size_t>(*id)]; !first)
            first = element;
    forEachAddress(element, [this, &element](std::string address) {
        contactByAddress_.emplace(std::move(address), element);
    });
}

void Database::indexRelation(XmlElement element) {
    const std::string part1 = element.text("part1");
    const std::string part2 = element.text("part2");
    const auto position = static_cast<std::uint32_t>(relations_.size());
    relations_.push_back({std::move(element), {}});
    RelationEntry& entry = relations_.back();
    entry.relation = {readContactId(part1), readContactId(part2),
                      readNumber(entry.element.text("weight"))};

    const std::optional<int> id1 = plainContactId(part1);
    const std::optional<int> id2 = plainContactId(part2);
    if (id1)
        relationsByContact_[static_cast<std::size_t>(*id1)].push_back(position);
    if (id2 && id2 != id1)
        relationsByContact_[static_cast<std::size_t>(*id2)].push_back(position);
    if (id1 && id2)
        relationByPair_.emplace(pairKey(*id1, *id2), position);
}

}  // namespace pelk
