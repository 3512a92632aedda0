#include "apps/cli/listing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

#include "views/contact_text.h"
#include "views/strength.h"

namespace pelk {
namespace {

void print(std::ostream& out, const QJsonDocument& document) {
    out << document.toJson(QJsonDocument::Indented).constData();
}

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QJsonObject toJson(const Contact& contact) {
    QJsonArray addresses;
    for (const std::string& address : contact.addresses)
        addresses.append(text(address));
    return {{"id", contact.id}, {"name", text(contact.name)}, {"addresses", addresses}};
}

std::vector<Contact> contactsByName(const Database& database, const Language& language) {
    std::vector<Contact> contacts;
    std::vector<std::string> descriptions;
    database.forEachContact([&](const Contact& contact) {
        contacts.push_back(contact);
        descriptions.push_back(describe(contact));
    });
    const std::vector<std::string_view> views(descriptions.begin(), descriptions.end());
    std::vector<Contact> sorted;
    for (const std::size_t position : language.alphabeticalOrder(views))
        sorted.push_back(std::move(contacts[position]));
    return sorted;
}

/// Strongest first; relations of one weight by their ids.
void sortByWeight(std::vector<Relation>& relations) {
    std::sort(relations.begin(), relations.end(), [](const Relation& a, const Relation& b) {
        return std::tie(b.weight, a.part1, a.part2) < std::tie(a.weight, b.part1, b.part2);
    });
}

std::string nameOfContact(const Database& database, int id) {
    const std::optional<Contact> contact = database.contact(id);
    return contact ? contact->name : std::string();
}

/// Classes and weights stand in columns.
void printStrength(std::ostream& out, Strength strength, std::int64_t weight) {
    out << std::left << std::setw(7) << nameOf(strength) << std::right << std::setw(6) << weight;
}

/// Where the tag or text that `xml` begins with ends. A ">" inside quotes is part of a value.
std::size_t endOfTag(std::string_view xml) {
    if (xml.front() != '<')
        return std::min(xml.find('<'), xml.size());
    bool quoted = false;
    for (std::size_t at = 0; at < xml.size(); ++at) {
        if (xml[at] == '"')
            quoted = !quoted;
        else if (xml[at] == '>' && !quoted)
            return at + 1;
    }
    return xml.size();
}

}  // namespace

void printOutcome(std::ostream& out, const ScanOutcome& outcome, const Database& database,
                  bool json) {
    if (json) {
        print(out, QJsonDocument(
                       QJsonObject{{"mails", outcome.mails},
                                   {"newContacts", static_cast<qint64>(outcome.contacts)},
                                   {"newRelations", static_cast<qint64>(outcome.relations)},
                                   {"contacts", static_cast<qint64>(database.contactCount())},
                                   {"relations", static_cast<qint64>(database.relationCount())}}));
        return;
    }
    out << "e-mails counted: " << outcome.mails << '\n'
        << "contacts: " << database.contactCount() << " (" << outcome.contacts << " new)\n"
        << "relations: " << database.relationCount() << " (" << outcome.relations << " new)\n";
}

void printContacts(std::ostream& out, const Database& database, const Language& language,
                   bool json) {
    QJsonArray array;
    for (const Contact& contact : contactsByName(database, language)) {
        if (json)
            array.append(toJson(contact));
        else
            out << std::setw(5) << contact.id << "  " << describe(contact) << '\n';
    }
    if (json)
        print(out, QJsonDocument(array));
}

void printRelations(std::ostream& out, const Database& database, int contactId, bool json) {
    std::vector<Relation> relations = database.relationsOf(contactId);
    sortByWeight(relations);
    const std::int64_t strongest = database.strongestWeight();
    QJsonArray array;
    for (const Relation& relation : relations) {
        const std::int64_t weight = roundToInteger(relation.weight);
        const Strength strength = strengthOf(weight, strongest, database.thresholds());
        const int partner = relation.partnerOf(contactId);
        const std::string name = nameOfContact(database, partner);
        if (json) {
            array.append(QJsonObject{{"class", nameOf(strength)},
                                     {"weight", static_cast<qint64>(weight)},
                                     {"id", partner},
                                     {"name", text(name)}});
            continue;
        }
        printStrength(out, strength, weight);
        out << std::setw(7) << partner << "  " << name << '\n';
    }
    if (json)
        print(out, QJsonDocument(array));
}

void printStrongest(std::ostream& out, const Database& database, std::size_t count) {
    std::vector<Relation> relations = database.relations();
    sortByWeight(relations);
    relations.resize(std::min(count, relations.size()));
    const std::int64_t strongest = database.strongestWeight();
    for (const Relation& relation : relations) {
        const std::int64_t weight = roundToInteger(relation.weight);
        printStrength(out, strengthOf(weight, strongest, database.thresholds()), weight);
        out << "  " << nameOfContact(database, relation.part1) << " - "
            << nameOfContact(database, relation.part2) << '\n';
    }
}

void printDocument(std::ostream& out, std::string_view xml) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    xml.remove_prefix(endOfTag(xml));
    while (!xml.empty()) {
        const std::size_t end = endOfTag(xml);
        out << xml.substr(0, end) << '\n';
        xml.remove_prefix(end);
    }
}

}  // namespace pelk
