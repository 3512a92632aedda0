#include "mailstore/imap/mailbox_messages.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "mailstore/content_type.h"
#include "mailstore/meeting_search.h"
#include "mailstore/message_time.h"
#include "platform/error.h"

namespace pelk {
namespace {

/// Large enough for round trips to the server to cost little.
constexpr std::size_t kMostInBatch = 512;
/// A scan recognises a store by at most this many fingerprints.
constexpr std::size_t kFirstPrints = 16;

}  // namespace

MailboxMessages::MailboxMessages(ImapServer& server, const MailboxNode& node,
                                 const std::optional<FolderMark>& mark, const LocalTime& settled)
    : server_(server),
      node_(node),
      present_(localTime(NotedTime{std::time(nullptr)}).value_or(LocalTime{})),
      settled_(settled),
      examined_(server.examine(*node.mailbox)),
      batchSize_(kMostInBatch) {
    if (mark && mark->numbering == examined_.uidValidity)
        settledUid_ = mark->last;
    const bool maybeNew = examined_.uidNext == 0 || examined_.uidNext > settledUid_ + 1ULL;
    if (examined_.exists > 0 && maybeNew)
        uids_ = server_.inMailbox(
            *node.mailbox, examined_.uidValidity,
            [this](ImapConnection& connection) { return connection.uidsAbove(settledUid_); });
    if (settledUid_ > 0)
        counted_ = examined_.exists - std::min<std::size_t>(uids_.size(), examined_.exists);
}

ImapItem MailboxMessages::message(std::size_t index) {
    const std::size_t wanted = index - counted_;
    if (wanted < batchBegin_ || wanted >= batchBegin_ + batch_.size())
        takeBatch(wanted);
    const std::optional<FetchedHeader>& header = batch_[wanted - batchBegin_];
    if (!header)
        throw Error("Message " + std::to_string(uids_[wanted]) + " of the folder " + node_.name +
                    " is no longer on the mail server.");
    ImapItem item;
    item.message = std::make_shared<ImapMessage>(
        *header, present_,
        node_.holdsAll && header->draft ? std::optional(DefaultFolder::Drafts) : std::nullopt);
    item.kind = kindOf(*header, *item.message);
    noteGivenOut(wanted, *item.message);
    return item;
}

void MailboxMessages::noteGivenOut(std::size_t index, ImapMessage& message) {
    if (index != unsettled_ || message.isDatedAhead() || message.creationTime() >= settled_)
        return;
    settledUid_ = uids_[index];
    ++unsettled_;
}

/// Also starts to fetch the next batch, because messages are mostly read in order. The fetching
/// thread frees the previous batch: freeing its memory here would make both threads wait.
void MailboxMessages::takeBatch(std::size_t index) {
    if (coming_.valid())
        server_.waitFor(coming_);
    Batch done = std::exchange(batch_, {});
    std::future<Batch> coming = std::move(coming_);
    batch_ = coming.valid() && comingBegin_ == index ? coming.get() : fetchBatch(index);
    batchBegin_ = index;
    comingBegin_ = index + batch_.size();
    if (batchSize_ == kMostInBatch && comingBegin_ < uids_.size())
        coming_ = std::async(std::launch::async | std::launch::deferred,
                             [this, begin = comingBegin_, done = std::move(done)]() mutable {
                                 done.clear();
                                 return fetchBatch(begin);
                             });
}

MailboxMessages::Batch MailboxMessages::fetchBatch(std::size_t index) {
    std::size_t size = std::min(batchSize_, uids_.size() - index);
    std::vector<FetchedHeader> headers;
    try {
        headers = fetch(index, size);
    } catch (const Error&) {
        batchSize_ = 1;
        throw;
    }
    batchSize_ = std::min(kMostInBatch, size * 2);
    return sorted(index, size, std::move(headers));
}

/// The server may already send messages of the next range, whose command was sent ahead.
MailboxMessages::Batch MailboxMessages::sorted(std::size_t index, std::size_t size,
                                               std::vector<FetchedHeader> headers) {
    Batch early = std::exchange(early_, Batch(kMostInBatch));
    const std::size_t earlyBegin = std::exchange(earlyBegin_, index + size);
    Batch batch(size);
    if (earlyBegin == index)
        std::move(early.begin(),
                  early.begin() + static_cast<std::ptrdiff_t>(std::min(size, early.size())),
                  batch.begin());
    for (FetchedHeader& header : headers) {
        const auto found = std::lower_bound(uids_.begin(), uids_.end(), header.uid);
        if (found == uids_.end() || *found != header.uid)
            continue;
        const auto place = static_cast<std::size_t>(found - uids_.begin());
        if (place >= index && place < index + size)
            batch[place - index] = std::move(header);
        else if (place >= index + size && place < index + size + early_.size())
            early_[place - index - size] = std::move(header);
    }
    return batch;
}

UidRange MailboxMessages::range(std::size_t index, std::size_t size) const {
    return {uids_[index], uids_[index + size - 1]};
}

/// Returns the range at `index` to send ahead, if the range before it has full size.
std::optional<UidRange> MailboxMessages::next(std::size_t index, std::size_t size) const {
    if (size < kMostInBatch || index == uids_.size())
        return std::nullopt;
    return range(index, std::min(kMostInBatch, uids_.size() - index));
}

/// After a fault, fetches only one message, so that the next fault loses little. If its answer
/// cannot be parsed, fetches only the start of its header.
std::vector<FetchedHeader> MailboxMessages::fetch(std::size_t index, std::size_t& size) {
    Detail detail = Detail::Whole;
    return server_.inMailbox(
        *node_.mailbox, examined_.uidValidity, [&](ImapConnection& connection) {
            try {
                return connection.headers(range(index, size), detail, next(index + size, size));
            } catch (const BrokenAnswer&) {
                detail = size == 1 ? Detail::HeaderStart : Detail::Whole;
                size = 1;
                throw;
            } catch (const ConnectionLost&) {
                size = 1;
                throw;
            }
        });
}

ItemKind MailboxMessages::kindOf(const FetchedHeader& header, const ImapMessage& message) {
    if (message.isReport())
        return ItemKind::Report;
    return isMeeting(header) ? ItemKind::Meeting : ItemKind::Mail;
}

bool MailboxMessages::isMeeting(const FetchedHeader& header) {
    if (header.meeting)
        return true;
    return std::any_of(
        header.calendars.begin(), header.calendars.end(), [&](const CalendarPart& part) {
            const std::string start = server_.inMailbox(
                *node_.mailbox, examined_.uidValidity, [&](ImapConnection& connection) {
                    return connection.partStart(header.uid, part.section);
                });
            return isMeetingMethod(methodOf(decodeContent(part.encoding, start)));
        });
}

std::uint64_t MailboxMessages::fingerprintOfCounted(std::size_t index) {
    if (!firstPrints_)
        firstPrints_ = fetchFirstPrints();
    return index < firstPrints_->size() ? (*firstPrints_)[index] : 0;
}

std::vector<std::uint64_t> MailboxMessages::fetchFirstPrints() {
    const auto count = static_cast<std::uint32_t>(std::min(kFirstPrints, counted_));
    const std::vector<FetchedHeader> headers = server_.inMailbox(
        *node_.mailbox, examined_.uidValidity,
        [count](ImapConnection& connection) { return connection.firstHeaders(count); });
    std::vector<std::uint64_t> prints;
    for (const FetchedHeader& header : headers) {
        ImapMessage message(header, present_, std::nullopt);
        const bool isMail = !header.deleted && kindOf(header, message) == ItemKind::Mail;
        prints.push_back(isMail ? message.fingerprint() : 0);
    }
    return prints;
}

}  // namespace pelk
