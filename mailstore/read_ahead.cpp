#include "mailstore/read_ahead.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace pelk {
namespace {

// In messages; large enough that starting a thread costs little.
constexpr std::size_t kBatchSize = 128;
// The most bytes of headers in a batch. Only hostile mail reaches it.
constexpr std::size_t kMostBytes = 4UL << 20;
// Reading takes about as long as counting, so a third thread would wait.
constexpr std::size_t kBatchesAhead = 2;

}  // namespace

ListedMessage ReadAhead::message(std::size_t index) {
    std::optional<ListedMessage> listed;
    if (index == next_)
        listed = takeNext();
    else
        startBehind(index);
    next_ = index + 1;
    if (!listed)
        listed = messages_.message(index);
    last_ = listed->message;
    return *std::move(listed);
}

void ReadAhead::startBehind(std::size_t index) {
    coming_.clear();
    batch_.clear();
    taken_ = 0;
    unread_ = index + 1;
}

std::optional<ListedMessage> ReadAhead::takeNext() {
    if (taken_ == batch_.size())
        takeBatch();
    return batch_[taken_++];
}

void ReadAhead::takeBatch() {
    startReading({});
    Batch done = std::exchange(batch_, coming_.front().get());
    coming_.pop_front();
    taken_ = 0;
    startReading(std::move(done));
}

/// The thread that reads the next batch frees the messages of `done`. Freeing them on the caller's
/// thread would make both threads wait for the allocator. People are parsed only if the caller asks
/// for them, because that takes most of the time and a scan does not need those of old mail.
void ReadAhead::startReading(Batch done) {
    const bool withPeople = !last_ || last_->peopleWanted();
    while (coming_.size() < kBatchesAhead && unread_ < messages_.count()) {
        const std::size_t end = std::min(unread_ + kBatchSize, messages_.count());
        // If the system has no thread left, the batch is read when it is needed.
        coming_.push_back(std::async(std::launch::async | std::launch::deferred, read,
                                     std::cref(messages_), unread_, end, withPeople,
                                     std::exchange(done, {})));
        unread_ = end;
    }
}

ReadAhead::Batch ReadAhead::read(const StoredMessages& messages, std::size_t begin, std::size_t end,
                                 bool withPeople, Batch done) {
    done.clear();
    Batch batch(end - begin);
    std::size_t bytes = 0;
    for (std::size_t index = begin; index < end && bytes < kMostBytes; ++index) {
        try {
            ListedMessage listed = messages.message(index);
            listed.message->creationTime();
            if (withPeople)
                listed.message->readPeople();
            bytes += listed.message->heldBytes();
            batch[index - begin] = std::move(listed);
        } catch (const std::exception&) {
            // The caller reads the message again and receives the error.
        }
    }
    return batch;
}

}  // namespace pelk
