#include "maintenance/duplicates.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <utility>

#include "maintenance/identity.h"
#include "maintenance/keyed_values.h"
#include "views/registered_domain.h"

namespace pelk {
namespace {

/// What more contacts than this have in common is common, and says nothing about two of them.
constexpr std::size_t kMostAlike = 8;
/// A name at so many registered domains is common.
constexpr std::size_t kCommonDomains = 3;
/// A shorter word before the "@" may be a first name or a nickname.
constexpr std::size_t kShortestCompact = 6;
/// Two contacts of one person share so many correspondents besides the owner of the mail.
constexpr std::size_t kFewestShared = 3;

/// Returns the ids under which the database finds contacts, in order. A foreign document may hold
/// them in any order, repeat an id, write it as "007", or have an invalid one, which is 0.
std::set<int> contactIds(const Database& database) {
    std::set<int> ids;
    database.forEachContact([&ids](const Contact& contact) { ids.insert(contact.id); });
    std::erase_if(ids, [&database](int id) { return id == 0 || !database.contact(id); });
    return ids;
}

class DuplicateSearch {
 public:
    DuplicateSearch(const Database& database, const Language& language) {
        people_.reserve(database.contactCount());
        for (const int id : contactIds(database))
            people_.push_back(readIdentity(*database.contact(id), language));
        for (std::size_t person = 0; person < people_.size(); ++person)
            addKeys(person);
        for (const Relation& relation : database.relations()) {
            correspondents_.add(static_cast<Key>(relation.part1), static_cast<Key>(relation.part2));
            correspondents_.add(static_cast<Key>(relation.part2), static_cast<Key>(relation.part1));
        }
        for (KeyedValues* const values : {&members_, &values_, &correspondents_})
            values->sort();
    }

    std::vector<Duplicate> find() const {
        std::vector<std::pair<std::size_t, std::size_t>> pairs;
        members_.forEachPair(kMostAlike, [&pairs](Key first, Key second) {
            pairs.emplace_back(static_cast<std::size_t>(first), static_cast<std::size_t>(second));
        });
        std::sort(pairs.begin(), pairs.end());
        pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
        std::vector<Duplicate> duplicates;
        for (const auto& [first, second] : pairs)
            if (std::optional<Duplicate> duplicate = judge(people_[first], people_[second]))
                duplicates.push_back(std::move(*duplicate));
        std::stable_sort(duplicates.begin(), duplicates.end(),
                         [](const Duplicate& left, const Duplicate& right) {
                             return left.reason < right.reason;
                         });
        return duplicates;
    }

 private:
    /// Adds a person under each thing that a duplicate may have in common with it. Offices and
    /// programs have only addresses.
    void addKeys(std::size_t number) {
        const Identity& person = people_[number];
        for (const Mailbox& mailbox : person.mailboxes) {
            members_.add(keyOf("address", mailbox.whole), number);
            if (person.isRole)
                continue;
            members_.add(keyOf("mailbox", mailbox.key()), number);
            members_.add(keyOf("word", mailbox.word), number);
            if (!person.name && mailbox.letters.size() >= kShortestCompact)
                members_.add(keyOf("compact", mailbox.letters), number);
        }
        if (person.name)
            addNameKeys(number, *person.name);
        for (const PersonName& name : person.spelled)
            addNameKeys(number, name);
    }

    void addNameKeys(std::size_t number, const PersonName& name) {
        const Key key = keyOf("name", name.key());
        members_.add(key, number);
        for (const Mailbox& mailbox : people_[number].mailboxes)
            values_.add(key, keyOf("domain", registeredDomain(mailbox.domain)));
        for (const std::string& initials : name.initialKeys()) {
            members_.add(keyOf("initials", initials), number);
            if (name.isFull())
                values_.add(keyOf("initials", initials), key);
        }
        for (const std::string& form : name.compactForms()) {
            members_.add(keyOf("compact", form), number);
            if (name.isFull())
                values_.add(keyOf("compact", form), key);
        }
    }

    std::optional<Duplicate> judge(const Identity& one, const Identity& other) const {
        Duplicate duplicate{one.id, other.id, DuplicateReason::SameAddress, ""};
        if (shared(one, other, &Mailbox::whole) != nullptr)
            duplicate.text = "same address";
        else if (!areNumbered(one, other))
            judgeNames(one, other, duplicate);
        return duplicate.text.empty() ? std::nullopt : std::optional(std::move(duplicate));
    }

    template <typename Value>
    static const Mailbox* shared(const Identity& one, const Identity& other, Value value) {
        for (const Mailbox& mailbox : one.mailboxes)
            for (const Mailbox& same : other.mailboxes)
                if (std::invoke(value, mailbox) == std::invoke(value, same))
                    return &mailbox;
        return nullptr;
    }

    static bool areNumbered(const Identity& one, const Identity& other) {
        for (const Mailbox& mailbox : one.mailboxes)
            for (const Mailbox& same : other.mailboxes)
                if (mailbox.domain == same.domain && mailbox.letters == same.letters &&
                    mailbox.digits != same.digits)
                    return true;
        return false;
    }

    /// Sets reason and text if the names agree, or none speaks against what the addresses say.
    void judgeNames(const Identity& one, const Identity& other, Duplicate& duplicate) const {
        const std::optional<Agreement> names = agreementOf(one, other);
        const bool mayBeOne = names || !one.name || !other.name;
        const auto is = [&duplicate](DuplicateReason reason, const std::string& text) {
            duplicate.reason = reason;
            duplicate.text = text;
        };
        if (mayBeOne && shared(one, other, &Mailbox::key) != nullptr)
            is(DuplicateReason::SameMailbox, "addresses of one mailbox");
        else if (const Mailbox* const same = shared(one, other, &Mailbox::word); names && same)
            is(DuplicateReason::SameLocalPart, "names agree, both are " + same->local + "@...");
        else if (names && names->isFull() && names->isSpelled && isTelling(one, other, *names))
            is(DuplicateReason::NameInAddress, "name spelled in an address");
        else if (names && names->isFull() && isTelling(one, other, *names))
            is(DuplicateReason::SameName, sameNameText(*names));
        else if (names && !names->isFull() && areUnique(*names))
            is(DuplicateReason::Initials, "initials that agree with nobody else");
        else if (abbreviates(one, other) || abbreviates(other, one))
            is(DuplicateReason::NameInAddress, "name abbreviated in an address");
    }

    static std::string sameNameText(const Agreement& names) {
        if (names.one->parts.size() != names.other->parts.size())
            return "same first name and surname";
        return names.one->first() == names.other->first() ? "same name"
                                                          : "same name in another order";
    }

    bool isCommon(const PersonName& name) const {
        const Key key = keyOf("name", name.key());
        const std::size_t members = members_.count(key);
        return (members >= kCommonDomains && values_.count(key) >= kCommonDomains) ||
               members > kMostAlike;
    }

    /// A common name says nothing alone, but more if both know the same people.
    bool isTelling(const Identity& one, const Identity& other, const Agreement& names) const {
        if (!isCommon(*names.one))
            return true;
        const auto id = static_cast<Key>(one.id);
        const auto otherId = static_cast<Key>(other.id);
        const std::size_t shared = correspondents_.countShared(id, otherId);
        return shared >= kFewestShared &&
               3 * shared >= std::min(correspondents_.count(id), correspondents_.count(otherId));
    }

    /// Whether only one full name may stand for the initials.
    bool areUnique(const Agreement& names) const {
        const PersonName& full = names.one->isFull() ? *names.one : *names.other;
        const PersonName& brief = names.one->isFull() ? *names.other : *names.one;
        return full.isFull() && !isCommon(full) &&
               values_.count(keyOf("initials", brief.initialKeys().front())) == 1;
    }

    /// Whether an address of a contact without a name is the name of the other in one word, and of
    /// nobody else.
    bool abbreviates(const Identity& unnamed, const Identity& named) const {
        if (unnamed.name || !unnamed.spelled.empty() || !named.name || isCommon(*named.name))
            return false;
        const PersonName& name = *named.name;
        const bool fits =
            unnamed.word.empty() || unnamed.word == name.first() || unnamed.word == name.last();
        if (!fits || !name.generation.empty())
            return false;
        const std::vector<std::string> forms = name.compactForms();
        return std::any_of(
            unnamed.mailboxes.begin(), unnamed.mailboxes.end(), [&](const Mailbox& mailbox) {
                return mailbox.letters.size() >= kShortestCompact &&
                       std::find(forms.begin(), forms.end(), mailbox.letters) != forms.end() &&
                       values_.count(keyOf("compact", mailbox.letters)) <= 1;
            });
    }

    std::vector<Identity> people_;
    /// Who has something in common, by numbers in `people_`.
    KeyedValues members_;
    /// The registered domains of a name; the full names that initials, or a name in one word, may
    /// stand for.
    KeyedValues values_;
    /// By id: the contacts related to it.
    KeyedValues correspondents_;
};

}  // namespace

std::vector<Duplicate> findDuplicates(const Database& database, const Language& language) {
    return DuplicateSearch(database, language).find();
}

}  // namespace pelk
