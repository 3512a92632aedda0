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
#include <unordered_map>
#include <vector>

#include "db/numbers.h"
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
    /// The ids of its two ends; 0 for one that is no contact's id.
    int part1 = 0;
    int part2 = 0;
    /// The number of e-mails counted between the two.
    double weight = 0;

    /// The other end of a relation of the contact `id`; the same contact when it is related to
    /// itself. Throws `Error` when `id` is neither end.
    int partnerOf(int id) const;
};

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
    /// Takes over a loaded document. Throws `Error`, which says what is wrong, when it is not a
    /// contact database: another root, or not one container each of contacts and relations.
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
    /// Counts one more e-mail.
    void countMail();
    Thresholds thresholds() const;

    std::size_t contactCount() const { return contactCount_; }
    /// Calls the visitor with each contact, in document order. The visitor edits nothing.
    void forEachContact(const std::function<void(const Contact&)>& visit) const;
    /// The contact with that id; nothing when there is none.
    std::optional<Contact> contact(int id) const;
    /// The id of the contact that owns the address, which is in lower case; 0 when nobody does.
    /// Throws `MalformedQuery` when the address holds an apostrophe.
    int contactIdByAddress(const std::string& address) const;
    /// Creates a contact with the next free id, which it returns. An empty name is left out.
    /// Throws `ContactLimitReached`, with nothing changed, when all ids have been handed out.
    int addContact(const std::string& name, const std::string& address);

    std::size_t relationCount() const { return relations_.size(); }
    /// All relations, or those of one contact, in document order.
    std::vector<Relation> relations() const;
    std::vector<Relation> relationsOf(int id) const;
    /// Adds one e-mail to the relation of two contacts, in any order, and creates the relation
    /// when there is none. Does nothing when an id is 0 or both are the same.
    void addMailBetween(int id, int otherId);
    /// The largest weight of all relations, rounded; 0 without relations.
    std::int64_t strongestWeight() const;

    /// The elements behind the look-ups, for holding them to their queries.
    const XmlElement& root() const { return root_; }
    XmlElement contactElement(int id) const;
    XmlElement contactElementByAddress(const std::string& address) const;
    XmlElement relationElement(int smallerId, int largerId) const;
    std::vector<XmlElement> relationElementsOf(int id) const;

 private:
    using Positions = std::vector<std::uint32_t>;
    struct RelationEntry {
        XmlElement element;
        Relation relation;
    };

    const Positions& positionsOf(int id) const;
    void indexContact(const XmlElement& element);
    void indexRelation(XmlElement element);

    std::unique_ptr<XmlDocument> document_;
    XmlElement root_;
    XmlElement contactsContainer_;
    XmlElement relationsContainer_;

    std::size_t contactCount_ = 0;
    /// By id; an empty reference where there is no contact.
    std::vector<XmlElement> contactById_ = std::vector<XmlElement>(kMaxContactId + 1);
    std::unordered_map<std::string, XmlElement> contactByAddress_;
    /// In document order; the indexes below hold positions in it.
    std::vector<RelationEntry> relations_;
    std::unordered_map<std::uint32_t, std::uint32_t> relationByPair_;
    std::vector<Positions> relationsByContact_ = std::vector<Positions>(kMaxContactId + 1);

    std::uint64_t revision_ = 0;
};

}  // namespace pelk
