#include "maintenance/identity.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace pelk {
namespace {

/// More addresses of a contact are left out, because each is compared with those of others.
constexpr std::size_t kMostMailboxes = 20;

std::optional<Mailbox> readMailbox(std::string_view address, const Language& language) {
    Mailbox mailbox;
    mailbox.whole = language.folded(address);
    const std::size_t at = mailbox.whole.rfind('@');
    if (at == std::string::npos || at == 0)
        return std::nullopt;
    mailbox.domain = mailbox.whole.substr(at + 1);
    mailbox.local = mailbox.whole.substr(0, at);
    mailbox.local.resize(std::max<std::size_t>(1, std::min(mailbox.local.find('+'), at)));
    for (const char byte : mailbox.local) {
        const bool isDigit = byte >= '0' && byte <= '9';
        if (byte != '.' && byte != '-' && byte != '_')
            (mailbox.word += byte, (isDigit ? mailbox.digits : mailbox.letters) += byte);
    }
    mailbox.letters = withoutDigraphs(mailbox.letters);
    return mailbox;
}

/// A first name alone is completed from the address.
void readNames(Identity& person, const Contact& contact, const Language& language) {
    for (const Mailbox& mailbox : person.mailboxes)
        if (std::optional<PersonName> name = readLocalPart(mailbox.local))
            person.spelled.push_back(std::move(*name));
    person.name = readPersonName(contact.name, language);
    if (person.name)
        return;
    if (contact.name.find('@') == std::string::npos)
        person.word = withoutDigraphs(language.folded(contact.name));
    for (const PersonName& name : person.spelled)
        if (person.word == name.first() || person.word == name.last())
            person.name = name;
}

/// Whether two names differ in what tells namesakes apart: the generation or a middle name.
bool contradict(const PersonName& one, const PersonName& other) {
    return one.generation != other.generation || (one.key() == other.key() && !agree(one, other));
}

}  // namespace

Identity readIdentity(const Contact& contact, const Language& language) {
    Identity person;
    person.id = contact.id;
    for (const std::string& address : contact.addresses)
        if (person.mailboxes.size() == kMostMailboxes)
            break;
        else if (std::optional<Mailbox> mailbox = readMailbox(address, language))
            person.mailboxes.push_back(std::move(*mailbox));
    person.isRole = std::all_of(person.mailboxes.begin(), person.mailboxes.end(),
                                [](const Mailbox& mailbox) { return isRoleName(mailbox.local); });
    if (!person.isRole)
        readNames(person, contact, language);
    return person;
}

std::optional<Agreement> agreementOf(const Identity& one, const Identity& other) {
    std::vector<Agreement> all;
    if (one.name && other.name && contradict(*one.name, *other.name))
        return std::nullopt;
    if (one.name && other.name)
        all.push_back({&*one.name, &*other.name, false});
    for (const PersonName& name : other.spelled)
        if (one.name)
            all.push_back({&*one.name, &name, true});
    for (const PersonName& name : one.spelled)
        if (other.name)
            all.push_back({&name, &*other.name, true});
    std::erase_if(all, [](const Agreement& names) { return !agree(*names.one, *names.other); });
    const auto full =
        std::find_if(all.begin(), all.end(), [](const Agreement& names) { return names.isFull(); });
    return full != all.end() ? std::optional(*full)
           : all.empty()     ? std::nullopt
                             : std::optional(all.front());
}

}  // namespace pelk
