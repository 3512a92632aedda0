#pragma once
// One message of a folder.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"
#include "mailstore/message_time.h"
#include "platform/mail_client.h"

namespace pelk {

/// Reads from its file only what it is asked for. Every function may fail with an `Error`.
class StoredMessage : public MailItem {
 public:
    /// `received` is the time when the message came into its store, as it is noted outside of its
    /// header, if it is.
    StoredMessage(MessagePlace place, NotedTime received);

    /// Where no time is noted, the topmost `Received` field tells, then `Date`; but the message was
    /// there when its file was changed last.
    LocalTime creationTime() override;
    bool isDatedAhead() override;
    std::string messageId() override;
    std::uint64_t fingerprint() override;
    std::optional<DefaultFolder> labelledFolder() override;
    std::optional<MailPerson> replyRecipient() override;
    int recipientCount() override;
    MailPerson recipient(int index) override;

    /// Reads now whom the functions above will name.
    void readPeople();
    /// Whether somebody has asked for a person.
    bool peopleWanted() const { return peopleWanted_; }

    const MessageHeader& header();
    /// Bytes of the header that have been read and are kept.
    std::size_t heldBytes() const { return header_ ? header_->length() : 0; }
    /// The one whom the message says it is from, as text, or empty text.
    std::string author();
    std::string subject();

 private:
    /// The time that the message itself tells.
    const std::optional<LocalTime>& ownTime();
    std::optional<LocalTime> findOwnTime();
    std::vector<MailPerson> people(std::string_view field);
    const std::optional<MailPerson>& sender();
    const std::vector<MailPerson>& recipients();

    MessagePlace place_;
    NotedTime received_;
    std::optional<std::optional<LocalTime>> ownTime_;
    std::unique_ptr<const MessageHeader> header_;
    std::optional<std::optional<MailPerson>> sender_;
    std::optional<std::vector<MailPerson>> recipients_;
    bool peopleWanted_ = false;
};

}  // namespace pelk
