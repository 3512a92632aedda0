#include "scan/mail_recorder.h"

#include "platform/utf8.h"

namespace pelk {

void MailRecorder::record(const MailPeople& people) {
    const int senderId = findOrAddContact(people.sender);
    database_.countMails(1);
    ++outcome_.mails;
    for (const MailPerson& recipient : people.recipients)
        steps_.attempt([this, senderId, &recipient] {
            database_.addMailBetween(senderId, findOrAddContact(recipient));
        });
}

/// Returns the id of the contact with the person's address, without changing its name. Returns 0,
/// for which no relation is counted, when the person has no address or cannot be added.
int MailRecorder::findOrAddContact(const MailPerson& person) {
    if (person.address.empty())
        return 0;
    try {
        const int id = database_.contactIdByAddress(person.address);
        return id != 0 ? id : database_.addContact(cleanText(person.name), person.address);
    } catch (const MalformedQuery&) {
        outcome_.apostrophes.insert(person.address);
        return 0;
    } catch (const ContactLimitReached&) {
        outcome_.databaseFull = true;
        return 0;
    }
}

}  // namespace pelk
