#include "mailstore/sqlite_database.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "mailstore/mail_file.h"
#include "mailstore/sqlite_copy.h"
#include "mailstore/temporary_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr const char* kImmutable = "?immutable=1";

std::string uriOf(const std::string& path) {
    std::string uri = "file:";
    for (const char c : path) {
        if (c == '%')
            uri += "%25";
        else if (c == '?')
            uri += "%3f";
        else if (c == '#')
            uri += "%23";
        else
            uri += c;
    }
    return uri;
}

/// Returns when the database or its pending changes were written last.
std::int64_t lastChange(const std::string& path) {
    std::int64_t last = 0;
    for (const char* const ending : {"", "-wal", "-journal"}) {
        struct stat status {};
        if (::stat((path + ending).c_str(), &status) == 0)
            last = std::max<std::int64_t>(last, status.st_mtim.tv_sec);
    }
    return last;
}

}  // namespace

void SqliteQuery::restart(const std::vector<std::int64_t>& parameters) {
    sqlite3_reset(statement_.get());
    for (std::size_t i = 0; i < parameters.size(); ++i)
        sqlite3_bind_int64(statement_.get(), static_cast<int>(i) + 1, parameters[i]);
}

bool SqliteQuery::next() {
    const int result = sqlite3_step(statement_.get());
    if ((result != SQLITE_ROW && result != SQLITE_DONE) || database_.isOverwritten())
        database_.fail();
    return result == SQLITE_ROW;
}

std::optional<std::string> SqliteQuery::text(int column) const {
    const void* const bytes = sqlite3_column_blob(statement_.get(), column);
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_NULL)
        return std::nullopt;
    return std::string(static_cast<const char*>(bytes), length);
}

std::optional<std::int64_t> SqliteQuery::number(int column) const {
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_NULL)
        return std::nullopt;
    return sqlite3_column_int64(statement_.get(), column);
}

SqliteDatabase::SqliteDatabase(const std::string& path)
    : path_(std::filesystem::absolute(path).string()),
      state_(stateOf(path_)),
      changed_(lastChange(path_)) {
    isCopy_ = hasPendingChanges(path_);
    if (isCopy_)
        openCopy();
    else
        open(uriOf(path_) + kImmutable, SQLITE_OPEN_READONLY);
    // SQLite reads the file only now.
    query("SELECT count(*) FROM sqlite_master", {}).next();
}

SqliteDatabase::FileState SqliteDatabase::stateOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        failReading(path);
    return {static_cast<std::int64_t>(status.st_ino), status.st_size, status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec};
}

/// Returns whether the file that is open has been changed. Changes that are still pending are not
/// in it, and a copy never changes.
bool SqliteDatabase::isOverwritten() const {
    return !isCopy_ && stateOf(path_) != state_;
}

void SqliteDatabase::open(const std::string& uri, int flags) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(uri.c_str(), &opened, flags | SQLITE_OPEN_URI, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK)
        fail();
}

void SqliteDatabase::openCopy() {
    const TemporaryDirectory directory;
    const std::string copy = directory.path() + "/copy.db";
    copySqlite(path_, copy);
    open(uriOf(copy), SQLITE_OPEN_READWRITE);
    // Applies the pending changes. The file is complete then, and readable without a name.
    query("PRAGMA journal_mode=DELETE", {}).next();
    open(uriOf(copy) + kImmutable, SQLITE_OPEN_READONLY);
    query("SELECT count(*) FROM sqlite_master", {}).next();
}

SqliteQuery SqliteDatabase::query(const std::string& sql,
                                  const std::vector<std::int64_t>& parameters) const {
    SqliteQuery query(*this);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        fail();
    query.statement_.reset(statement);
    query.restart(parameters);
    return query;
}

void SqliteDatabase::fail() const {
    const std::string reason = sqlite3_errmsg(database_.get());
    if (isOverwritten())
        throw Error(path_ + " cannot be read: it was changed by another program.");
    throw Error(path_ + " cannot be read: " + reason + ".");
}

}  // namespace pelk
