#pragma once
// One message of a folder on disk.

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

/// Reads from its file only what a caller asks for. Every function may throw an `Error` if the file
/// cannot be read. One thread at a time may use an object.
class StoredMessage : public MailItem {
 public:
    /// `received` is the arrival time that the store recorded outside of the header, if any.
    StoredMessage(MessagePlace place, NotedTime received);

    /// Returns the recorded time, else that of the topmost `Received` field, else that of `Date`.
    /// Never later than the last change of the file, because the message was there by then.
    LocalTime creationTime() override;
    std::optional<LocalTime> sentTime() override;
    bool isDatedAhead() override;
    std::string messageId() override;
    std::uint64_t fingerprint() override;
    std::optional<DefaultFolder> labelledFolder() override;
    std::optional<MailPerson> replyRecipient() override;
    int recipientCount() override;
    MailPerson recipient(int index) override;
    MailAutomation automation() override;

    /// Parses sender, recipients, `automation` and `sentTime` now, so that the functions above are
    /// quick later.
    void readPeople();
    /// Whether a caller has asked for a person.
    bool peopleWanted() const { return peopleWanted_; }

    const MessageHeader& header();
    /// The number of bytes of the header in memory.
    std::size_t heldBytes() const { return header_ ? header_->length() : 0; }
    /// The name of the author (`From`, else `Sender`), or empty text.
    std::string author();
    std::string subject();

 private:
    /// The arrival time without regard to the file's last change.
    const std::optional<LocalTime>& ownTime();
    std::optional<LocalTime> findOwnTime();
    const std::optional<MailPerson>& sender();
    const std::vector<MailPerson>& recipients();

    MessagePlace place_;
    NotedTime received_;
    std::optional<std::optional<LocalTime>> ownTime_;
    std::optional<std::optional<LocalTime>> sentTime_;
    std::unique_ptr<const MessageHeader> header_;
    std::optional<std::optional<MailPerson>> sender_;
    std::optional<std::vector<MailPerson>> recipients_;
    std::optional<MailAutomation> automation_;
    bool peopleWanted_ = false;
};

}  // namespace pelk
