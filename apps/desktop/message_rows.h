#pragma once
// The messages of a folder, each read when it is needed, and the order in which a list shows them.

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "mailstore/mail_store.h"
#include "platform/language.h"
#include "views/word_search.h"

namespace pelk {

class MessageRows {
 public:
    enum Column { kFrom, kSubject, kDate, kColumnCount };

    struct Row {
        MessageSummary summary;
        /// The reason why the message cannot be read; usually empty.
        std::string fault;
        bool isRead = false;
    };

    /// `language` outlives this object.
    explicit MessageRows(const Language& language) : language_(language), search_(language) {}

    /// Takes the messages of the folder, which must exist until another is taken. Throws `Error`
    /// and holds no messages when the folder cannot be read.
    void take(StoredFolder& folder);
    StoredFolder& folder() const { return *folder_; }

    std::size_t count() const { return rows_.size(); }
    /// Returns message `number`, from 0. Reads it if it has not been read.
    const Row& row(std::size_t number);

    /// Reads further messages for about this long.
    void readOn(std::chrono::milliseconds time);
    /// How many messages `readOn` has come past.
    std::size_t readCount() const { return read_; }
    /// Whether `readOn` has nothing left to do. It gives up when reading a message fails slowly, as
    /// it does when a server is gone.
    bool isDone() const { return gaveUp_ || read_ == rows_.size(); }

    /// Returns the numbers of the messages that `readOn` has come past and whose sender and subject
    /// contain all words of the query, as `WordSearch::find` does.
    const std::vector<std::size_t>& find(const std::string& query) { return search_.find(query); }
    /// Returns the numbers of all messages in the order of the column.
    std::vector<std::size_t> sortedBy(Column column, bool descending) const;

 private:
    void read(std::size_t number);

    const Language& language_;
    StoredFolder* folder_ = nullptr;
    std::vector<Row> rows_;
    WordSearch search_;
    std::size_t read_ = 0;
    bool gaveUp_ = false;
};

}  // namespace pelk
