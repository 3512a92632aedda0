#include "mailstore/imap/imap_message.h"

#include <algorithm>
#include <cstring>

#include "mailstore/content_type.h"
#include "mailstore/gmail_labels.h"
#include "mailstore/header_people.h"
#include "mailstore/message_identity.h"
#include "mailstore/message_time.h"
#include "platform/error.h"

namespace pelk {
namespace {

/// Returns when the message came, by the server's record or else by its own date.
std::optional<LocalTime> timeOf(std::int64_t internalDate, const MessageHeader& header) {
    if (const auto noted = localTime(NotedTime{internalDate}))
        return noted;
    return localTime(NotedTime{dateFieldTime(header.first("Date"))});
}

}  // namespace

ImapMessage::ImapMessage(const FetchedHeader& fetched, const LocalTime& present,
                         std::optional<DefaultFolder> label)
    : header_(fetched.text),
      present_(present),
      label_(label),
      own_(timeOf(fetched.internalDate, header_)) {}

LocalTime ImapMessage::creationTime() {
    return own_ ? std::min(*own_, present_) : present_;
}

std::optional<LocalTime> ImapMessage::sentTime() {
    return localTime(NotedTime{dateFieldTime(header_.first("Date"))});
}

bool ImapMessage::isDatedAhead() {
    return !own_ || *own_ > present_;
}

std::string ImapMessage::messageId() {
    return pelk::messageId(header_);
}

std::uint64_t ImapMessage::fingerprint() {
    return pelk::fingerprint(header_);
}

std::optional<DefaultFolder> ImapMessage::labelledFolder() {
    return label_ ? label_ : folderOfLabels(header_.first("X-Gmail-Labels"));
}

std::optional<MailPerson> ImapMessage::replyRecipient() {
    return replyRecipientOf(header_);
}

int ImapMessage::recipientCount() {
    if (!recipients_)
        recipients_ = recipientsOf(header_);
    return static_cast<int>(recipients_->size());
}

MailPerson ImapMessage::recipient(int index) {
    if (index < 1 || index > recipientCount())
        throw Error("A message on the mail server has no recipient " + std::to_string(index) + ".");
    return (*recipients_)[static_cast<std::size_t>(index) - 1];
}

MailAutomation ImapMessage::automation() {
    return automationOf(header_);
}

/// Parsing the type takes longer than everything else, and few messages can be reports.
bool ImapMessage::isReport() const {
    return ::strcasestr(header_.first("Content-Type").c_str(), "report") != nullptr &&
           pelk::isReport(ContentType(header_));
}

}  // namespace pelk
