#include "mailstore/sqlite_database.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "mailstore/mail_file.h"
#include "mailstore/temporary_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

// The files of one database; all but the first hold pending changes.
constexpr std::array<const char*, 3> kEndings = {"", "-wal", "-journal"};
constexpr int kCopyAttempts = 5;

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

SqliteDatabase::SqliteDatabase(std::string path)
    : path_(std::filesystem::absolute(path).string()), state_(stateOf(path_)) {
    if (state_.pending)
        openCopy();
    else
        open(uriOf(path_) + "?immutable=1", SQLITE_OPEN_READONLY);
    // SQLite reads the file only now.
    query("SELECT count(*) FROM sqlite_master", {}).next();
}

/// Returns zeros for a file that does not exist.
SqliteDatabase::FileState SqliteDatabase::stateOfFile(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        if (errno != ENOENT)
            failReading(path);
        return {};
    }
    return {static_cast<std::int64_t>(status.st_ino), status.st_size, status.st_mtim.tv_sec,
            status.st_mtim.tv_nsec};
}

SqliteDatabase::State SqliteDatabase::stateOf(const std::string& path) {
    State state;
    for (std::size_t i = 0; i < kEndings.size(); ++i) {
        const FileState file = stateOfFile(path + kEndings[i]);
        const auto [identity, size, seconds, nanoseconds] = file;
        state.files[i] = file;
        state.changed = std::max(state.changed, seconds);
        state.pending = state.pending || (i > 0 && size > 0);
    }
    return state;
}

/// Returns whether the file that is open has been changed. Changes that are still pending are not
/// in it, and a copy never changes.
bool SqliteDatabase::isOverwritten() const {
    return !state_.pending && stateOfFile(path_) != state_.files[0];
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
    for (int attempt = 1; !copyTo(copy); ++attempt)
        if (attempt == kCopyAttempts)
            throw Error(path_ +
                        " cannot be read: a program is writing to it. Close that program and try "
                        "again.");
    open(uriOf(copy), SQLITE_OPEN_READWRITE);
    // Without a WAL the open file is complete, and it stays readable when its name is gone.
    query("PRAGMA journal_mode=DELETE", {}).next();
}

/// Returns false if a file was changed meanwhile, so that the copies may not fit each other.
bool SqliteDatabase::copyTo(const std::string& copy) {
    state_ = stateOf(path_);
    for (const char* const ending : kEndings) {
        std::error_code error;
        if (std::filesystem::exists(path_ + ending, error))
            std::filesystem::copy_file(path_ + ending, copy + ending,
                                       std::filesystem::copy_options::overwrite_existing, error);
        else
            std::filesystem::remove(copy + ending, error);
        if (error)
            throw Error(path_ + ending + " cannot be copied to " + temporaryDirectory() + ": " +
                        error.message() + ".");
    }
    return stateOf(path_) == state_;
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
