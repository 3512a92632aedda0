#include "apps/cli/listing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "apps/cli/terminal_text.h"
#include "platform/xml_markup.h"
#include "scan/scan_notes.h"
#include "views/contact_text.h"
#include "views/email_parser.h"

namespace pelk {

void print(std::ostream& out, const QJsonDocument& document) {
    out << escapedForJson(document.toJson(QJsonDocument::Indented).constData());
}

std::string strengthColumns(Strength strength, std::int64_t weight) {
    std::ostringstream columns;
    columns << std::left << std::setw(7) << nameOf(strength) << std::right << std::setw(6)
            << weight;
    return columns.str();
}

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QJsonObject toJson(const Contact& contact) {
    QJsonArray addresses;
    for (const std::string& address : contact.addresses)
        addresses.append(text(address));
    return {{"id", contact.id}, {"name", text(contact.name)}, {"addresses", addresses}};
}

QJsonObject toJson(const NewStore& store) {
    QJsonObject object{{"name", text(store.name)}};
    if (!store.since.empty())
        object.insert("since", text(store.since));
    return object;
}

QJsonObject toJson(const LeftOutFolder& folder) {
    QJsonObject object{{"name", text(folder.name)}};
    if (folder.mails)
        object.insert("mails", *folder.mails);
    return object;
}

template <typename Value>
QJsonArray toJsonArray(const std::vector<Value>& values) {
    QJsonArray array;
    for (const Value& value : values)
        array.append(toJson(value));
    return array;
}

/// Empty when nothing was left out.
QJsonObject leftOutToJson(const ScanOutcome& outcome) {
    QJsonObject object;
    if (!outcome.leftOut.empty())
        object.insert("folders", toJsonArray(outcome.leftOut));
    QJsonObject labelled;
    for (const auto& [kind, mails] : outcome.labelled)
        labelled.insert(nameOf(kind), mails);
    if (!labelled.isEmpty())
        object.insert("labelled", labelled);
    if (!outcome.apostrophes.empty())
        object.insert("apostrophes", static_cast<qint64>(outcome.apostrophes.size()));
    if (outcome.copies > 0)
        object.insert("copies", outcome.copies);
    QJsonArray unknown;
    for (const std::string& sentence : outcome.unknownFormats)
        unknown.append(text(sentence));
    if (!unknown.isEmpty())
        object.insert("unknown", unknown);
    return object;
}

/// Keys are printed in alphabetical order, and the optional ones sort after those always present.
QJsonObject toJson(const ScanOutcome& outcome, const Database& database) {
    QJsonObject object{{"mails", outcome.mails},
                       {"newContacts", static_cast<qint64>(outcome.contacts)},
                       {"newRelations", static_cast<qint64>(outcome.relations)},
                       {"contacts", static_cast<qint64>(database.contactCount())},
                       {"relations", static_cast<qint64>(database.relationCount())}};
    const QJsonObject leftOut = leftOutToJson(outcome);
    if (!leftOut.isEmpty())
        object.insert("skipped", leftOut);
    if (!outcome.newStores.empty())
        object.insert("stores", toJsonArray(outcome.newStores));
    if (outcome.faults > 0)
        object.insert("unread",
                      QJsonObject{{"count", outcome.faults}, {"first", text(outcome.firstFault)}});
    return object;
}

/// Returns the values in alphabetical order of their texts.
template <typename Value>
std::vector<Value> sortedBy(const std::vector<std::string>& texts, std::vector<Value> values,
                            const Language& language) {
    std::vector<Value> sorted;
    sorted.reserve(values.size());
    for (const std::size_t position : language.alphabeticalOrder({texts.begin(), texts.end()}))
        sorted.push_back(std::move(values[position]));
    return sorted;
}

/// Sorts by descending weight, then by id.
void sortByWeight(std::vector<Relation>& relations) {
    std::sort(relations.begin(), relations.end(), [](const Relation& a, const Relation& b) {
        return std::tie(b.weight, a.part1, a.part2) < std::tie(a.weight, b.part1, b.part2);
    });
}

/// Returns the labels of a domain, from left to right.
}  // namespace

void printOutcome(std::ostream& out, const ScanOutcome& outcome, const Database& database,
                  bool json) {
    if (json) {
        print(out, QJsonDocument(toJson(outcome, database)));
        return;
    }
    Line(out) << "e-mails counted: " << outcome.mails;
    Line(out) << "contacts: " << database.contactCount() << " (" << outcome.contacts << " new)";
    Line(out) << "relations: " << database.relationCount() << " (" << outcome.relations << " new)";
    for (const std::string& note : scanNotes(outcome))
        Line(out) << note;
}

std::vector<Contact> contactsByName(const Database& database, const Language& language) {
    std::vector<Contact> contacts;
    std::vector<std::string> descriptions;
    database.forEachContact([&](const Contact& contact) {
        contacts.push_back(contact);
        descriptions.push_back(describe(contact));
    });
    return sortedBy(descriptions, std::move(contacts), language);
}

void printContacts(std::ostream& out, const std::vector<Contact>& contacts, bool json) {
    if (!json) {
        for (const Contact& contact : contacts)
            printContact(out, contact, false);
        return;
    }
    QJsonArray array;
    for (const Contact& contact : contacts)
        array.append(toJson(contact));
    print(out, QJsonDocument(array));
}

void printContact(std::ostream& out, const Contact& contact, bool json) {
    if (json)
        print(out, QJsonDocument(toJson(contact)));
    else
        Line(out) << std::setw(5) << contact.id << "  " << describe(contact);
}

void printRelations(std::ostream& out, const Database& database, int contactId,
                    const HiddenContacts::Ids& leftOut, bool json) {
    std::vector<Relation> relations = database.relationsOf(contactId);
    std::erase_if(relations, [&leftOut, contactId](const Relation& relation) {
        return leftOut.contains(relation.partnerOf(contactId));
    });
    sortByWeight(relations);
    const std::int64_t strongest = database.strongestWeight();
    QJsonArray array;
    for (const Relation& relation : relations) {
        const std::int64_t weight = roundToInteger(relation.weight);
        const Strength strength = strengthOf(weight, strongest, database.thresholds());
        const int partner = relation.partnerOf(contactId);
        const std::string name = database.nameOf(partner);
        if (json) {
            array.append(QJsonObject{{"class", nameOf(strength)},
                                     {"weight", static_cast<qint64>(weight)},
                                     {"id", partner},
                                     {"name", text(name)}});
            continue;
        }
        Line(out) << strengthColumns(strength, weight) << std::setw(7) << partner << "  " << name;
    }
    if (json)
        print(out, QJsonDocument(array));
}

std::vector<DomainEntry> domainEntries(const Database& database, const Language& language,
                                       const std::string& domain,
                                       const HiddenContacts::Ids& leftOut) {
    std::vector<MailAddress> addresses = mailAddresses(database, language);
    std::erase_if(addresses, [&leftOut](const MailAddress& address) {
        return leftOut.contains(address.ownerId);
    });
    std::vector<DomainEntry> entries;
    if (domain.empty())
        for (std::string& label : topLevelDomains(addresses))
            entries.push_back({std::move(label), {}});
    else
        entries = entriesBelow(addresses, labelsOf(domain));
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (const DomainEntry& entry : entries)
        texts.push_back(entry.text);
    return sortedBy(texts, std::move(entries), language);
}

void printDomains(std::ostream& out, const std::vector<DomainEntry>& entries, bool json) {
    QJsonArray array;
    for (const DomainEntry& entry : entries) {
        if (!json) {
            Line(out) << entry.text << (entry.isAddress() ? "" : "/");
            continue;
        }
        QJsonObject object{{"text", text(entry.text)}};
        if (entry.isAddress())
            object.insert("address", text(entry.address));
        array.append(object);
    }
    if (json)
        print(out, QJsonDocument(array));
}

void printDetails(std::ostream& out, const RelationDetails& details, bool json) {
    const std::string sentence = details.sentence();
    if (json) {
        print(out, QJsonDocument(
                       QJsonObject{{"names", QJsonArray{text(details.name1), text(details.name2)}},
                                   {"weight", static_cast<qint64>(details.weight)},
                                   {"strongest", static_cast<qint64>(details.strongest)},
                                   {"sentence", text(sentence)}}));
        return;
    }
    Line(out) << details.name1 << " - " << details.name2;
    Line(out) << "weight: " << details.weight;
    Line(out) << sentence;
}

void printThresholds(std::ostream& out, const Thresholds& thresholds, bool json) {
    if (json)
        print(out,
              QJsonDocument(QJsonObject{{"strong", thresholds.strong}, {"weak", thresholds.weak}}));
    else
        out << "strong: " << thresholds.strong << "\nweak: " << thresholds.weak << '\n';
}

void printStrongest(std::ostream& out, const Database& database, std::size_t count) {
    std::vector<Relation> relations = database.relations();
    sortByWeight(relations);
    relations.resize(std::min(count, relations.size()));
    const std::int64_t strongest = database.strongestWeight();
    for (const Relation& relation : relations) {
        const std::int64_t weight = roundToInteger(relation.weight);
        Line(out) << strengthColumns(strengthOf(weight, strongest, database.thresholds()), weight)
                  << "  " << database.nameOf(relation.part1) << " - "
                  << database.nameOf(relation.part2);
    }
}

void printDocument(std::ostream& out, std::string_view xml) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    takeMarkup(xml);  // the declaration of the output names its own encoding
    while (!xml.empty()) {
        const Markup markup = takeMarkup(xml);
        out << escapedForXml(markup.text);
        // A line break next to text would become part of it.
        if (xml.empty() || (markup.kind != MarkupKind::Text && xml.front() == '<'))
            out << '\n';
    }
}

}  // namespace pelk
