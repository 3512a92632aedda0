#pragma once
// The messages of one folder on a server, fetched in batches of some hundred.

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

/// Only one thread may call; a second one fetches the next batch in the background.
class MailboxMessages {
 public:
    /// Opens the folder. Does not fetch messages up to the mark if the mark has the folder's
    /// UIDVALIDITY. A new mark includes only messages that came before `settled`. Throws `Error` if
    /// the folder cannot be read.
    MailboxMessages(ImapServer& server, const MailboxNode& node,
                    const std::optional<FolderMark>& mark, const LocalTime& settled);

    /// Returns how many messages are up to the mark. They come first.
    std::size_t countedBefore() const { return counted_; }
    std::size_t count() const { return counted_ + uids_.size(); }
    /// Returns message `index`, counted from 0. Throws `Error` if it cannot be fetched or is gone.
    /// Requires: countedBefore() <= index < count().
    ImapItem message(std::size_t index);
    /// Returns the fingerprint of a message up to the mark; 0 if it is not an e-mail or not one of
    /// the first few.
    std::uint64_t fingerprintOfCounted(std::size_t index);

    std::uint32_t numbering() const { return examined_.uidValidity; }
    /// Returns the UID for the new mark: `message` has returned all messages up to it in order, and
    /// they came before `settled`. Returns the old mark's if there is none, or 0.
    std::uint32_t settledUid() const { return settledUid_; }

 private:
    /// Consecutive messages; nullopt for one that is gone.
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
    /// The index in `uids_` of the first message that the new mark does not include.
    std::size_t unsettled_ = 0;

    std::size_t batchBegin_ = 0;
    Batch batch_;
    std::optional<std::vector<std::uint64_t>> firstPrints_;

    // Only the fetching thread uses these: the second thread as long as `coming_` is pending.
    std::size_t batchSize_;
    Batch early_;
    std::size_t earlyBegin_ = 0;

    std::size_t comingBegin_ = 0;
    std::future<Batch> coming_;
};

}  // namespace pelk
