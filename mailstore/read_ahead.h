#pragma once
// Reads the next messages of a folder while the caller handles the earlier ones.

#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "mailstore/stored_messages.h"

namespace pelk {

/// Returns messages. While they are requested in order, other threads read the next few, however
/// large the folder is. One thread at a time may call `message`.
class ReadAhead {
 public:
    /// `messages` must outlive this.
    explicit ReadAhead(const StoredMessages& messages) : messages_(messages) {}

    /// Returns message `index`, as `StoredMessages::message` does.
    ListedMessage message(std::size_t index);

 private:
    /// An empty entry is a message that has not been read.
    using Batch = std::vector<std::optional<ListedMessage>>;

    void startBehind(std::size_t index);
    std::optional<ListedMessage> takeNext();
    void takeBatch();
    void startReading(Batch done);
    static Batch read(const StoredMessages& messages, std::size_t begin, std::size_t end,
                      bool withPeople, Batch done);

    const StoredMessages& messages_;
    Batch batch_;
    /// The number of messages of the batch that have been returned.
    std::size_t taken_ = 0;
    std::deque<std::future<Batch>> coming_;
    /// The message that is expected to be requested next.
    std::size_t next_ = 0;
    /// The first message after all batches.
    std::size_t unread_ = 0;
    std::shared_ptr<const StoredMessage> last_;
};

}  // namespace pelk
