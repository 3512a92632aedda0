#pragma once
// The contact database: an XML document in memory, with typed access.
//
// The document is authoritative, and its text is what is saved. All edits go through this class,
// which keeps the indexes consistent with the queries of db/queries.h: each look-up finds the
// first element in document order that its query selects.
//
// Invariants that the program's own edits maintain: an id is assigned once, in order of discovery;
// an address is in lower case and belongs to one contact; a pair of contacts has at most one
// relation, with the smaller id as `part1`. A foreign document may break them and is still read.
//
// Not thread-safe: one thread at a time uses a database.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/content.h"
#include "db/journal.h"
#include "db/numbers.h"
#include "db/records.h"
#include "platform/xml.h"

namespace pelk {

/// The limits between strong, medium and weak relations, in percent of the strongest weight.
struct Thresholds {
    double strong = 0;
    double weak = 0;
};

/// The database is full: a further contact would need an id above `kMaxContactId`.
class ContactLimitReached : public Error {
 public:
    ContactLimitReached();
};

class Database {
 public:
    /// Takes ownership of a loaded document. Throws `DamagedData` when it is not a contact
    /// database: the root has another name, or there is not exactly one container of contacts and
    /// one of relations.
    explicit Database(std::unique_ptr<XmlDocument> document) : content_(std::move(document)) {}

    /// Returns the whole document as text, see `XmlDocument::xml`.
    std::string xml() const { return content_.document->xml(); }
    /// A number that increases with every edit.
    std::uint64_t revision() const { return revision_; }

    /// The stamp of the end of the last completed scan.
    std::string date() const { return content_.root.text("date"); }
    void setDate(const std::string& stamp);
    /// The number of e-mails counted, as text.
    std::string totalMails() const { return content_.root.text("totalMails"); }
    /// Adds to the number of e-mails; a negative number adds nothing.
    void countMails(std::int64_t mails);
    Thresholds thresholds() const;
    /// Sets both thresholds, in percent.
    void setThresholds(int strong, int weak);
    /// The number of contacts ever created, which is the last id assigned. In a foreign document it
    /// may be any number.
    std::int64_t totalContacts() const { return readInteger(content_.root.text("totalContacts")); }

    /// Sets `totalContacts` to the highest id in use if it is lower than that or above
    /// `kMaxContactId`, which happens only in foreign documents. Returns a message for the user
    /// about the repair; nothing if none was needed.
    std::optional<std::string> putCountRight();

    std::size_t contactCount() const { return content_.contacts.count(); }
    /// Calls `visit` with each contact, in document order. `visit` must not edit the database.
    void forEachContact(const std::function<void(const Contact&)>& visit) const;
    /// Returns the contact with that id; nothing if there is none.
    std::optional<Contact> contact(int id) const;
    /// Returns the contact's name; empty if there is no such contact or it has no name.
    std::string nameOf(int id) const;
    /// Returns the id of the contact that owns the address, given in lower case; 0 if there is
    /// none. Throws `MalformedQuery` when the address has an apostrophe.
    int contactIdByAddress(const std::string& address) const;
    /// Returns the ids of all contacts that own the address, in document order; usually at most
    /// one.
    std::vector<int> ownersOf(const std::string& address) const;
    /// Returns the first of them; 0 if there is none. Unlike `contactIdByAddress`, which scans use,
    /// it accepts an apostrophe.
    int ownerOf(const std::string& address) const { return content_.contacts.idByAddress(address); }
    /// Creates a contact and returns its id. An empty name is left out of the document. Throws
    /// `ContactLimitReached`, with nothing changed, when all ids have been assigned.
    int addContact(const std::string& name, const std::string& address);
    /// Creates a contact as a copy of another document's element, with a new id, which it returns.
    /// Throws `ContactLimitReached`, with nothing changed.
    int addCopyOfContact(const XmlElement& original);
    /// Adds those of the addresses that the contact does not have. Does nothing when there is no
    /// such contact.
    void addAddresses(int id, const std::vector<std::string>& addresses);
    /// Renames a contact. Returns false when there is no such contact.
    bool renameContact(int id, const std::string& name);
    /// Moves the addresses of one contact after those of another, even if that lists one twice.
    /// Does nothing when either contact is missing or both are the same.
    void moveAddresses(int fromId, int toId);
    /// Removes contacts with all their relations. Skips ids without a contact.
    void removeContacts(const std::vector<int>& ids);

    std::size_t relationCount() const { return content_.relations.count(); }
    /// Return all relations, or those of one contact, in document order.
    std::vector<Relation> relations() const;
    std::vector<Relation> relationsOf(int id) const;
    /// Adds 1 to the relation of two contacts, in any order, after creating it if there is none.
    /// Does nothing when an id is 0 or both are the same.
    void addMailBetween(int id, int otherId);
    /// Returns the relation of two contacts, in any order; nothing if there is none.
    std::optional<Relation> relationOfPair(int id, int otherId) const;
    /// Adds to the weight of the relation of two contacts, in any order, after creating it if there
    /// is none. Throws `Error`, with nothing changed, when both are the same.
    void addRelationWeight(int id, int otherId, std::int64_t weight);
    /// Removes the first relation of two contacts, in any order, if there is one.
    void removeRelation(int id, int otherId);
    /// Returns the largest weight of all relations, rounded; 0 if there are none.
    std::int64_t strongestWeight() const;

    /// Replaces the whole content with that of another database.
    void replaceContent(Database&& other);

    /// Changes something beside the document by `swap`, which reverts the change when it is called
    /// again and does not throw. An undo of the step calls it.
    void changeOutside(const std::function<void()>& swap) { journal_.changeOutside(swap); }

    /// A number that increases when addresses may have ceased to belong to a contact: with each
    /// removal of a contact that has some, and each replacement of the content. A change of
    /// `changeOutside` follows it within the step; an undo is no new loss.
    std::uint64_t losses() const { return losses_; }

    /// Runs `edits`, which edits this database, as one step that can be undone, unless it changes
    /// nothing. `name` says what the step did, for menus: "rename of Ann". When `edits` throws,
    /// reverts its edits and passes the exception on. Edits outside of a step, such as those of a
    /// scan, forget all steps: the user must not lose counted e-mails with an undo.
    void inStep(const std::string& name, const std::function<void()>& edits);
    /// Undo or redo one step; at least 20 are kept. Return false when there is none. Throw, with
    /// nothing changed, when the memory or a library fails.
    bool undo();
    bool redo();
    /// Return the name of the step that `undo` or `redo` concerns; empty when there is none.
    std::string undoName() const { return journal_.undoName(); }
    std::string redoName() const { return journal_.redoName(); }

    /// Returns the elements of all contacts, for copying them to another document.
    std::vector<XmlElement> contactElements() const;
    /// The document's root, for checking the document.
    const XmlElement& root() const { return content_.root; }

 private:
    int takeNextId();
    XmlElement emailsOf(const XmlElement& contact);

    Content content_;
    Journal journal_;
    std::uint64_t revision_ = 0;
    std::uint64_t losses_ = 0;
};

}  // namespace pelk
