#include "platform/desktop/mail/stored_message.h"

#include <iterator>

#include "platform/desktop/mail/address_list.h"
#include "platform/desktop/mail/mail_text.h"
#include "platform/desktop/mail/message_time.h"
#include "platform/error.h"

namespace pelk {

StoredMessage::StoredMessage(MessagePlace place, std::int64_t received)
    : place_(std::move(place)), received_(received) {}

LocalTime StoredMessage::creationTime() {
    if (const auto noted = localTime(received_))
        return *noted;
    if (const auto written = localTime(dateFieldTime(header().first("Date"))))
        return *written;
    return localTime(place_.file->modified()).value_or(LocalTime{});
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

void StoredMessage::readPeople() {
    sender();
    recipients();
}

const MessageHeader& StoredMessage::header() {
    if (!header_)
        header_.reset(new MessageHeader(readHeader(place_)));
    return *header_;
}

std::string StoredMessage::author() {
    const std::vector<MailPerson> found = people("From");
    return found.empty() ? std::string() : found.front().name;
}

std::string StoredMessage::subject() {
    return decodeText(header().first("Subject"));
}

std::vector<MailPerson> StoredMessage::people(std::string_view field) {
    std::vector<MailPerson> all;
    for (const std::string& value : header().all(field)) {
        std::vector<MailPerson> some = parseAddressList(value);
        all.insert(all.end(), std::make_move_iterator(some.begin()),
                   std::make_move_iterator(some.end()));
    }
    return all;
}

const std::optional<MailPerson>& StoredMessage::sender() {
    if (!sender_) {
        std::vector<MailPerson> found = people("Reply-To");
        if (found.empty())
            found = people("From");
        sender_ = found.empty() ? std::nullopt : std::optional(std::move(found.front()));
    }
    return *sender_;
}

const std::vector<MailPerson>& StoredMessage::recipients() {
    if (!recipients_) {
        std::vector<MailPerson> all;
        for (const std::string_view field : {"To", "Cc", "Bcc"}) {
            std::vector<MailPerson> some = people(field);
            all.insert(all.end(), std::make_move_iterator(some.begin()),
                       std::make_move_iterator(some.end()));
        }
        recipients_ = std::move(all);
    }
    return *recipients_;
}

}  // namespace pelk
