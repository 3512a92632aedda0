#pragma once
// What name and addresses of a contact say about who it is.

#include <optional>
#include <string>
#include <vector>

#include "db/records.h"
#include "maintenance/person_name.h"
#include "platform/language.h"

namespace pelk {

/// An address, folded (see `Language::folded`).
struct Mailbox {
    std::string whole;
    std::string domain;
    /// The part before the "@" without what stands after a "+", which names no other mailbox.
    std::string local;
    /// The same in one word, without what separates its words.
    std::string word;
    /// The digits of the word and its letters, these as in `withoutDigraphs`.
    std::string digits;
    std::string letters;

    /// The same for all addresses of the mailbox, as far as an address shows it.
    std::string key() const {
        return domain == "gmail.com" || domain == "googlemail.com" ? word + "@gmail.com"
                                                                   : local + '@' + domain;
    }
};

struct Identity {
    int id = 0;
    /// Whether all addresses are those of offices and programs. Then nothing else is read.
    bool isRole = false;
    /// The contact's name, if it is one of a person; a first name alone is completed from an
    /// address that spells it.
    std::optional<PersonName> name;
    /// The contact's name, folded, if it is neither a person's nor an address.
    std::string word;
    /// At most twenty.
    std::vector<Mailbox> mailboxes;
    /// The names that addresses spell in several words: ann.smith.
    std::vector<PersonName> spelled;
};

/// Leaves out addresses without a local part or a domain.
Identity readIdentity(const Contact& contact, const Language& language);

/// Two names that may be those of one person.
struct Agreement {
    const PersonName* one = nullptr;
    const PersonName* other = nullptr;
    /// Whether one of them is only spelled by an address.
    bool isSpelled = false;

    bool isFull() const { return one->isFull() && other->isFull(); }
};

/// Returns the best agreement of two contacts, of which at least one has a name; nothing if their
/// names do not agree. What two addresses spell alike need not be a person.
std::optional<Agreement> agreementOf(const Identity& one, const Identity& other);

}  // namespace pelk
