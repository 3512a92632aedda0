#include "mailstore/geary_store.h"

#include <utility>

#include "mailstore/content_type.h"

namespace pelk {

class GearyMessages : public StoredMessages {
 public:
    GearyMessages(std::shared_ptr<GearyStore> store, std::vector<std::int64_t> ids)
        : store_(std::move(store)), ids_(std::move(ids)) {}

    std::size_t count() const override { return ids_.size(); }

    ListedMessage message(std::size_t index) const override {
        const SqliteDatabase& database = store_->database_;
        NotedTime received;
        const auto file = MailFile::inMemory(store_->read(ids_[index], received, false),
                                             database.path(), database.changed());
        const MessagePlace place{file, 0, file->size(), false};
        ListedMessage listed{std::make_shared<StoredMessage>(place, received)};
        listed.kind = itemKind(place, listed.message->header());
        file->close();
        return listed;
    }

    MessagePlace place(std::size_t index) const override {
        const SqliteDatabase& database = store_->database_;
        NotedTime received;
        const auto file = MailFile::inMemory(store_->read(ids_[index], received, true),
                                             database.path(), database.changed());
        return {file, 0, file->size(), false};
    }

 private:
    const std::shared_ptr<GearyStore> store_;
    const std::vector<std::int64_t> ids_;
};

namespace {

/// Returns the fields that Geary fetches before the whole header, from the column `column` on.
std::string fetchedFields(const SqliteQuery& row, int column) {
    std::string text;
    for (const char* const name :
         {"From", "Sender", "Reply-To", "To", "Cc", "Bcc", "Subject", "Message-ID", "Date"})
        if (const auto value = row.text(column++))
            text += std::string(name) + ": " + *value + "\n";
    return text;
}

/// Returns whether the body decides what kind of item the message is.
bool needsBody(const std::string& headerText) {
    const MessageHeader header(headerText);
    const ContentType type(header);
    return type.is("multipart", "*") || type.is("text", "calendar");
}

}  // namespace

std::shared_ptr<GearyStore> GearyStore::open(const std::string& path) {
    return std::shared_ptr<GearyStore>(new GearyStore(path));
}

std::vector<GearyStore::Folder> GearyStore::folders(FolderId parent) {
    const std::lock_guard lock(mutex_);
    SqliteQuery rows = database_.query(
        "SELECT id, name FROM FolderTable WHERE coalesce(parent_id, ?2) = ?1 ORDER BY name",
        {parent, kTop});
    std::vector<Folder> folders;
    while (rows.next())
        folders.push_back({rows.number(0).value_or(0), rows.text(1).value_or("")});
    return folders;
}

std::unique_ptr<StoredMessages> GearyStore::messages(FolderId folder) {
    const std::lock_guard lock(mutex_);
    SqliteQuery rows = database_.query(
        "SELECT location.message_id FROM MessageLocationTable AS location"
        " JOIN MessageTable AS message ON message.id = location.message_id"
        " WHERE location.folder_id = ?1 AND coalesce(location.remove_marker, 0) = 0"
        " AND coalesce(message.flags, '') NOT LIKE '%\\Deleted%'"
        " AND (message.header IS NOT NULL OR message.from_field IS NOT NULL)"
        " ORDER BY location.ordering",
        {folder});
    std::vector<std::int64_t> ids;
    while (rows.next())
        ids.push_back(rows.number(0).value_or(0));
    return std::make_unique<GearyMessages>(shared_from_this(), std::move(ids));
}

/// Returns the text of a message; if not `whole`, without a body that does not decide its kind.
std::string GearyStore::read(std::int64_t id, NotedTime& received, bool whole) {
    const std::lock_guard lock(mutex_);
    if (!message_)
        message_.emplace(database_.query(
            "SELECT header, body, internaldate_time_t, from_field, sender, reply_to, to_field, cc,"
            " bcc, subject, message_id, date_field FROM MessageTable WHERE id = ?1",
            {id}));
    SqliteQuery& row = *message_;
    row.restart({id});
    if (!row.next())
        database_.fail();
    received.seconds = row.number(2).value_or(kNoTime);
    std::optional<std::string> header = row.text(0);
    std::string text = header ? *std::move(header) : fetchedFields(row, 3);
    // The column ends with the empty line after the header, unless the message has no body.
    if (!text.ends_with("\n\n") && !text.ends_with("\n\r\n"))
        text += "\n\n";
    if (whole || needsBody(text))
        text += row.text(1).value_or("");
    return text;
}

}  // namespace pelk
