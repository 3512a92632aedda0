#include "scan/mail_people.h"

#include <utility>

#include "platform/utf8.h"

namespace pelk {

std::optional<MailPeople> MailPeopleReader::read(MailItem& item) {
    std::optional<MailPerson> sender = senderOf(item);
    if (!sender)
        return std::nullopt;
    MailPeople people{withCleanAddress(*std::move(sender)), {}};
    int count = 0;
    steps_.attempt([&item, &count] { count = item.recipientCount(); });
    for (int index = 1; index <= count; ++index)
        steps_.attempt([this, &item, &people, index] {
            people.recipients.push_back(withCleanAddress(item.recipient(index)));
        });
    return people;
}

/// A sender whose address cannot be read is no contact, but the e-mail counts.
std::optional<MailPerson> MailPeopleReader::senderOf(MailItem& item) {
    try {
        return item.replyRecipient();
    } catch (const AddressRefused& error) {
        steps_.noteFault(error);
        return MailPerson();
    }
}

MailPerson MailPeopleReader::withCleanAddress(MailPerson person) const {
    person.address = language_.lowerCase(cleanText(person.address));
    return person;
}

}  // namespace pelk
