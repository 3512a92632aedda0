#include "scan/mail_recorder.h"

#include <string>

#include "platform/utf8.h"

namespace pelk {

bool MailRecorder::record(MailItem& item) {
    const std::optional<MailPerson> sender = senderOf(item);
    if (!sender)
        return false;
    const int senderId = findOrAddContact(*sender);
    database_.countMails(1);
    ++outcome_.mails;
    int count = 0;
    steps_.attempt([&item, &count] { count = item.recipientCount(); });
    for (int index = 1; index <= count; ++index)
        steps_.attempt([this, &item, senderId, index] {
            database_.addMailBetween(senderId, findOrAddContact(item.recipient(index)));
        });
    return true;
}

/// A sender whose address cannot be read is no contact, but the e-mail counts.
std::optional<MailPerson> MailRecorder::senderOf(MailItem& item) {
    try {
        return item.replyRecipient();
    } catch (const AddressRefused& error) {
        steps_.noteFault(error);
        return MailPerson();
    }
}

/// Returns the id of the contact with the person's address, without changing its name. Returns 0,
/// for which no relation is counted, when the person cannot be looked up or added.
int MailRecorder::findOrAddContact(const MailPerson& person) {
    const std::string address = language_.lowerCase(cleanText(person.address));
    if (address.empty())
        return 0;
    try {
        const int id = database_.contactIdByAddress(address);
        return id != 0 ? id : database_.addContact(cleanText(person.name), address);
    } catch (const MalformedQuery&) {
        outcome_.apostrophes.insert(address);
        return 0;
    } catch (const ContactLimitReached&) {
        outcome_.databaseFull = true;
        return 0;
    }
}

}  // namespace pelk
