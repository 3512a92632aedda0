#pragma once
// A message on a mail server, whose header has been fetched.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mailstore/imap/imap_connection.h"
#include "mailstore/item_kind.h"
#include "mailstore/message_header.h"
#include "platform/mail_client.h"

namespace pelk {

class ImapMessage : public MailItem {
 public:
    /// `present` is when the folder was opened; no message can have come later. `label` is the
    /// default folder that the message belongs to, whichever folder contains it.
    ImapMessage(const FetchedHeader& fetched, const LocalTime& present,
                std::optional<DefaultFolder> label);

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

    const MessageHeader& header() const { return header_; }
    /// Returns whether the header declares a delivery report or a receipt.
    bool isReport() const;

 private:
    const MessageHeader header_;
    const LocalTime present_;
    const std::optional<DefaultFolder> label_;
    const std::optional<LocalTime> own_;
    std::optional<std::vector<MailPerson>> recipients_;
};

}  // namespace pelk
