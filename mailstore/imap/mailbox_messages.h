#pragma once
// The messages of one folder on a server, which are fetched some hundred at a time.

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mailstore/imap/imap_message.h"
#include "mailstore/imap/imap_server.h"
#include "mailstore/imap/mailbox_tree.h"

namespace pelk {

struct ImapItem {
    std::shared_ptr<ImapMessage> message;
    ItemKind kind = ItemKind::Mail;
};

class MailboxMessages {
 public:
    /// Opens the folder. The messages up to the mark, if it is of the folder's numbering, are known
    /// by their number alone. `settled` is the time up to which messages may be marked. Fails with
    /// an `Error`.
    MailboxMessages(ImapServer& server, const MailboxNode& node,
                    const std::optional<FolderMark>& mark, const LocalTime& settled);

    /// The messages up to the mark: they are the first ones.
    std::size_t countedBefore() const { return counted_; }
    std::size_t count() const { return counted_ + uids_.size(); }
    /// Message `index`, counted from 0. Requires: countedBefore() <= index < count(). Fails with an
    /// `Error`, also when the message is gone.
    ImapItem message(std::size_t index);
    /// The fingerprint of one of the messages up to the mark; 0 for one that is no e-mail, and for
    /// those beyond the first few.
    std::uint64_t fingerprintOfCounted(std::size_t index);

    std::uint32_t numbering() const { return examined_.uidValidity; }
    /// The number up to which all messages have been given out, one after the other, and are
    /// settled; that of the mark if there is none.
    std::uint32_t settledUid() const { return settledUid_; }

 private:
    /// Messages one after the other; nothing in the place of one that is gone.
    using Batch = std::vector<std::optional<FetchedHeader>>;

    void takeBatch(std::size_t index);
    Batch fetchBatch(std::size_t index);
    Batch sorted(std::size_t index, std::size_t size, std::vector<FetchedHeader> headers);
    std::vector<FetchedHeader> fetch(std::size_t index, std::size_t& size);
    UidRange range(std::size_t index, std::size_t size) const;
    std::optional<UidRange> next(std::size_t index, std::size_t size) const;
    void noteGivenOut(std::size_t index, ImapMessage& message);
    ItemKind kindOf(const FetchedHeader& header, const ImapMessage& message);
    bool isMeeting(const FetchedHeader& header);
    std::vector<std::uint64_t> fetchFirstPrints();

    ImapServer& server_;
    const MailboxNode& node_;
    const LocalTime present_;
    const LocalTime settled_;
    ExaminedMailbox examined_;
    std::size_t counted_ = 0;
    std::vector<std::uint32_t> uids_;

    std::uint32_t settledUid_ = 0;
    /// The next message to be settled, counted from 0 among `uids_`.
    std::size_t unsettled_ = 0;

    std::size_t batchBegin_ = 0;
    Batch batch_;
    std::optional<std::vector<std::uint64_t>> firstPrints_;

    // Whoever fetches has these to himself: the other thread, as long as a batch is coming.
    std::size_t batchSize_;
    Batch early_;
    std::size_t earlyBegin_ = 0;

    std::size_t comingBegin_ = 0;
    std::future<Batch> coming_;
};

}  // namespace pelk
