#pragma once
// The contact database: one XML document in memory, in the words of the program.
//
// The document is the truth; what is saved is its text. Every edit goes through here, and keeps
// the indexes equal to the queries of db/queries.h: each look-up finds exactly the element, the
// first in document order, that its query selects.
//
// Invariants that the program's own edits keep: ids are handed out once, in order of discovery; an
// address, in lower case, belongs to one contact; a pair of contacts has one relation at most, with
// the smaller id as `part1`. A document from elsewhere may break them and is read as it stands.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/contact_index.h"
#include "db/numbers.h"
#include "db/records.h"
#include "db/relation_index.h"
#include "platform/xml.h"

namespace pelk {

/// What divides strong, medium and weak relations, in percent of the strongest relation's weight.
struct Thresholds {
    double strong = 0;
    double weak = 0;
};

/// No further contact fits: an id beyond `kMaxContactId` would be needed.
class ContactLimitReached : public Error {
 public:
    ContactLimitReached();
};

class Database {
 public:
    /// Takes over a loaded document. Throws `DamagedData`, which says what is wrong, when it is not
    /// a contact database: another root, or not one container each of contacts and relations.
    explicit Database(std::unique_ptr<XmlDocument> document);

    /// The whole document as text, see `XmlDocument::xml`.
    std::string xml() const { return document_->xml(); }
    /// Grows with every edit.
    std::uint64_t revision() const { return revision_; }

    /// The stamp of the end of the last completed scan.
    std::string date() const { return root_.text("date"); }
    void setDate(const std::string& stamp);
    /// The counter of e-mails, as text.
    std::string totalMails() const { return root_.text("totalMails"); }
    /// Counts further e-mails; a negative number counts nothing.
    void countMails(std::int64_t mails);
    Thresholds thresholds() const;
    /// Sets both thresholds, in percent.
    void setThresholds(int strong, int weak);
    /// The number of contacts ever created, which is the last id handed out; any other number when
    /// the document says so.
    std::int64_t totalContacts() const { return readInteger(root_.text("totalContacts")); }

    /// Sets `totalContacts` to the highest id in use where it would hand out an id twice, or none
    /// at all, as only a document from elsewhere can have it. Returns what was put right, said to
    /// the user; nothing when the count was in order.
    std::optional<std::string> putCountRight();

    std::size_t contactCount() const { return contacts_.count(); }
    /// Calls the visitor with each contact, in document order. The visitor edits nothing.
    void forEachContact(const std::function<void(const Contact&)>& visit) const;
    /// The contact with that id; nothing when there is none.
    std::optional<Contact> contact(int id) const;
    /// The name alone; empty when there is no such contact, or it has none.
    std::string nameOf(int id) const;
    /// The id of the contact that owns the address, which is in lower case; 0 when nobody does.
    /// Throws `MalformedQuery` when the address holds an apostrophe.
    int contactIdByAddress(const std::string& address) const;
    /// The ids of all contacts that own the address, in document order; usually one at most.
    std::vector<int> ownersOf(const std::string& address) const;
    /// The first of them; 0 when nobody owns the address. Unlike `contactIdByAddress`, which a scan
    /// uses, it takes an apostrophe as it stands.
    int ownerOf(const std::string& address) const { return contacts_.idByAddress(address); }
    /// Creates a contact with the next free id, which it returns. An empty name is left out.
    /// Throws `ContactLimitReached`, with nothing changed, when all ids have been handed out.
    int addContact(const std::string& name, const std::string& address);
    /// Creates a contact as a copy of another document's, with all that stands in it, but with the
    /// next free id, which it returns. Throws `ContactLimitReached`, with nothing changed.
    int addCopyOfContact(const XmlElement& original);
    /// Gives the contact those of the addresses that it does not have. Does nothing when there is
    /// no such contact.
    void addAddresses(int id, const std::vector<std::string>& addresses);
    /// Gives the contact another name. Returns false, with nothing changed, when there is none.
    bool renameContact(int id, const std::string& name);
    /// Moves the addresses of one contact behind those of another; one that both have stands twice
    /// then. Does nothing when either contact is missing or both are the same.
    void moveAddresses(int fromId, int toId);
    /// Removes contacts with all their relations; ids of no contact are passed over.
    void removeContacts(const std::vector<int>& ids);

    std::size_t relationCount() const { return relations_.count(); }
    /// All relations, or those of one contact, in document order.
    std::vector<Relation> relations() const;
    std::vector<Relation> relationsOf(int id) const;
    /// Adds one e-mail to the relation of two contacts, in any order, and creates the relation
    /// when there is none. Does nothing when an id is 0 or both are the same.
    void addMailBetween(int id, int otherId);
    /// The relation of two contacts, in any order; nothing when there is none.
    std::optional<Relation> relationOfPair(int id, int otherId) const;
    /// Adds to the weight of the relation of two contacts, in any order, and creates the relation
    /// when there is none. Throws `Error`, with nothing changed, when both are the same.
    void addRelationWeight(int id, int otherId, std::int64_t weight);
    /// Removes the relation of two contacts, in any order, if there is one; of several for the
    /// pair, the first.
    void removeRelation(int id, int otherId);
    /// The largest weight of all relations, rounded; 0 without relations.
    std::int64_t strongestWeight() const;

    /// Takes over the whole content of another database.
    void replaceContent(Database&& other);

    /// The contacts as they stand in the document, for copying them to another one.
    std::vector<XmlElement> contactElements() const;
    /// The document's root, for checking the document as it stands.
    const XmlElement& root() const { return root_; }

 private:
    int takeNextId();

    std::unique_ptr<XmlDocument> document_;
    XmlElement root_;
    XmlElement contactsContainer_;
    XmlElement relationsContainer_;
    ContactIndex contacts_;
    RelationIndex relations_;
    std::uint64_t revision_ = 0;
};

}  // namespace pelk
