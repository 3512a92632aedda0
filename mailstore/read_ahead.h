#pragma once
// Reads the messages of a folder while those before them are being looked at.

#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "mailstore/stored_messages.h"

namespace pelk {

/// Hands out messages. As long as they are taken one after the other, the next few are read on
/// other threads meanwhile, however large the folder is.
class ReadAhead {
 public:
    /// `messages` must outlive this.
    explicit ReadAhead(const StoredMessages& messages) : messages_(messages) {}

    /// As `StoredMessages::message`.
    ListedMessage message(std::size_t index);

 private:
    /// Nothing in the place of a message that has not been read.
    using Batch = std::vector<std::optional<ListedMessage>>;

    void startBehind(std::size_t index);
    std::optional<ListedMessage> takeNext();
    void takeBatch();
    void startReading(Batch done);
    static Batch read(const StoredMessages& messages, std::size_t begin, std::size_t end,
                      bool withPeople, Batch done);

    const StoredMessages& messages_;
    Batch batch_;
    /// How many messages of the batch have been handed out.
    std::size_t taken_ = 0;
    std::deque<std::future<Batch>> coming_;
    /// The message that is expected to be taken next.
    std::size_t next_ = 0;
    /// The first message behind all batches.
    std::size_t unread_ = 0;
    std::shared_ptr<const StoredMessage> last_;
};

}  // namespace pelk
