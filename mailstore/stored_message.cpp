#include "mailstore/stored_message.h"

#include <algorithm>

#include "mailstore/gmail_labels.h"
#include "mailstore/header_people.h"
#include "mailstore/mail_text.h"
#include "mailstore/message_identity.h"
#include "platform/error.h"

namespace pelk {

StoredMessage::StoredMessage(MessagePlace place, NotedTime received)
    : place_(std::move(place)), received_(received) {}

LocalTime StoredMessage::creationTime() {
    const std::optional<LocalTime>& changed = place_.file->changed();
    const std::optional<LocalTime>& own = ownTime();
    if (own && changed)
        return std::min(*own, *changed);
    return own ? *own : changed.value_or(LocalTime{});
}

std::optional<LocalTime> StoredMessage::sentTime() {
    if (!sentTime_)
        sentTime_ = localTime(NotedTime{dateFieldTime(header().first("Date"))});
    return *sentTime_;
}

/// A mail program writes an mbox again, but not a file with a single message. A change in the
/// future counts as the present, which is later at the next scan.
bool StoredMessage::isDatedAhead() {
    const std::optional<LocalTime>& changed = place_.file->changed();
    const std::optional<LocalTime>& own = ownTime();
    if (own && (!changed || *own <= *changed))
        return false;
    return place_.inMbox || place_.file->isAhead();
}

std::string StoredMessage::messageId() {
    return pelk::messageId(header());
}

std::uint64_t StoredMessage::fingerprint() {
    return pelk::fingerprint(header());
}

std::optional<DefaultFolder> StoredMessage::labelledFolder() {
    return folderOfLabels(header().first("X-Gmail-Labels"));
}

std::optional<MailPerson> StoredMessage::replyRecipient() {
    peopleWanted_ = true;
    return sender();
}

int StoredMessage::recipientCount() {
    peopleWanted_ = true;
    return static_cast<int>(recipients().size());
}

MailPerson StoredMessage::recipient(int index) {
    if (index < 1 || index > recipientCount()) {
        throw Error("A message in " + place_.file->path() + " has no recipient " +
                    std::to_string(index) + ".");
    }
    return recipients()[static_cast<std::size_t>(index) - 1];
}

MailAutomation StoredMessage::automation() {
    if (!automation_)
        automation_ = automationOf(header());
    return *automation_;
}

void StoredMessage::readPeople() {
    sender();
    recipients();
    automation();
    sentTime();
}

const MessageHeader& StoredMessage::header() {
    if (!header_)
        header_.reset(new MessageHeader(readHeader(place_)));
    return *header_;
}

std::string StoredMessage::author() {
    std::vector<MailPerson> found = peopleIn(header(), "From");
    if (found.empty())
        found = peopleIn(header(), "Sender");
    return found.empty() ? std::string() : found.front().name;
}

std::string StoredMessage::subject() {
    return decodeText(header().first("Subject"));
}

const std::optional<LocalTime>& StoredMessage::ownTime() {
    if (!ownTime_)
        ownTime_ = findOwnTime();
    return *ownTime_;
}

std::optional<LocalTime> StoredMessage::findOwnTime() {
    if (const auto noted = localTime(received_))
        return noted;
    if (const auto came = localTime(NotedTime{receivedFieldTime(header().first("Received"))}))
        return came;
    return sentTime();
}

const std::optional<MailPerson>& StoredMessage::sender() {
    if (!sender_)
        sender_ = replyRecipientOf(header());
    return *sender_;
}

const std::vector<MailPerson>& StoredMessage::recipients() {
    if (!recipients_)
        recipients_ = recipientsOf(header());
    return *recipients_;
}

}  // namespace pelk
