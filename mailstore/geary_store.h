#pragma once
// The mail of a Geary account: the SQLite database `geary.db`. Its tables are described by the
// files sql/version-*.sql of Geary.

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mailstore/sqlite_database.h"
#include "mailstore/stored_messages.h"

namespace pelk {

inline constexpr std::string_view kGearyFile = "geary.db";

/// The state of an account at the time it is opened. Any thread may use it.
class GearyStore : public std::enable_shared_from_this<GearyStore> {
 public:
    /// Identifies a folder. The folders without a parent are in `kTop`.
    using FolderId = std::int64_t;
    static constexpr FolderId kTop = -1;

    struct Folder {
        FolderId id = kTop;
        std::string name;
    };

    /// Throws an `Error` if the database at `path` cannot be read.
    static std::shared_ptr<GearyStore> open(const std::string& path);

    /// Returns the subfolders of `parent`, by name. Throws an `Error` if the database is damaged.
    std::vector<Folder> folders(FolderId parent);

    /// Lists the messages of a folder in the order of their UIDs. Leaves out those that are
    /// deleted, and those of which Geary has not fetched sender and recipients yet. Throws an
    /// `Error` if the database is damaged.
    std::unique_ptr<StoredMessages> messages(FolderId folder);

 private:
    friend class GearyMessages;

    explicit GearyStore(const std::string& path) : database_(path) {}
    std::string read(std::int64_t id, NotedTime& received, bool whole);

    const SqliteDatabase database_;
    std::mutex mutex_;
    /// Finds one message; kept because preparing it takes longer than running it.
    std::optional<SqliteQuery> message_;
};

}  // namespace pelk
