#pragma once
// Reads an SQLite database that belongs to a running program, without a trace in its directory.

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pelk {

class SqliteDatabase;

/// A query in progress.
class SqliteQuery {
 public:
    /// Starts again with other parameters.
    void restart(const std::vector<std::int64_t>& parameters);

    /// Moves to the next row, first to the first. Returns false after the last. Throws an `Error`
    /// that names the path if the database is damaged or has been changed since it was opened.
    bool next();

    /// The values of the current row; columns are counted from 0. Nothing for NULL.
    std::optional<std::string> text(int column) const;
    std::optional<std::int64_t> number(int column) const;

 private:
    friend class SqliteDatabase;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    explicit SqliteQuery(const SqliteDatabase& database) : database_(database) {}

    const SqliteDatabase& database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// The state of a database at the time it is opened. One thread at a time may use it.
///
/// A plain read-only connection creates `-shm` and `-wal` files beside a database in WAL mode, and
/// takes locks (sqlite.org/wal.html, "Read-Only Databases"). Without pending changes the file is
/// opened as immutable, which does neither. Pending changes, in a `-wal` or `-journal` file, are
/// ignored then; so if there are any, the constructor copies all files to a temporary directory and
/// lets SQLite apply the changes there.
class SqliteDatabase {
 public:
    /// Throws an `Error` that names the path if it is not a database, cannot be read or copied, or
    /// if another program writes to it all the time.
    explicit SqliteDatabase(const std::string& path);

    /// Starts a query whose parameters ?1, ?2, ... are `parameters`. The database must outlive it.
    /// Throws an `Error` that names the path if the database is damaged or has other tables.
    SqliteQuery query(const std::string& sql, const std::vector<std::int64_t>& parameters) const;

    /// The time of the last change in seconds since 1970.
    std::int64_t changed() const { return changed_; }
    const std::string& path() const { return path_; }
    /// Throws an `Error` with the reason of the last fault.
    [[noreturn]] void fail() const;

 private:
    /// Identity, size and time of a file; they differ after every change.
    using FileState = std::array<std::int64_t, 4>;
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };

    friend class SqliteQuery;
    static FileState stateOf(const std::string& path);
    bool isOverwritten() const;
    void open(const std::string& uri, int flags);
    void openCopy();

    const std::string path_;
    /// Of the file at `path_`, before it was opened.
    const FileState state_;
    const std::int64_t changed_;
    bool isCopy_ = false;
    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace pelk
