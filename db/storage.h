#pragma once
// The database on disk: one encrypted file in the user's data folder, and the copies that the user
// exports and imports.
//
// Not thread-safe: all calls come from the thread that owns the database.

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "db/companion.h"
#include "db/database.h"
#include "db/database_cipher.h"
#include "platform/platform.h"
#include "platform/whole_files.h"

namespace pelk {

/// A database that is not null.
struct OpenedDatabase {
    std::unique_ptr<Database> database;
    /// The message for the user when the database needed a repair, or when the file was damaged and
    /// renamed, and this database is empty.
    std::optional<std::string> notice;
};

/// Functions that need the folder of the user's file throw `NoDataFolder` if the system names none.
class Storage {
 public:
    explicit Storage(const Platform& platform) : platform_(platform) {}

    /// Returns the user's database. At the first start, creates the folder and a file with an empty
    /// database. Renames a file that is damaged or not a database, and returns an empty database in
    /// memory. Throws `Error`, and leaves the file untouched, when it cannot be read or written, or
    /// a library fails. Requires: no other program saves at the same time.
    OpenedDatabase loadDatabase();

    /// Like `loadDatabase`, but creates nothing at the first start: the empty database is in memory
    /// only. For commands that may have nothing to save.
    OpenedDatabase openDatabase();

    /// Like `openDatabase`, but creates, renames and writes nothing. Throws `DamagedData` when the
    /// file is not a database. For commands that only read.
    OpenedDatabase readDatabase();

    /// Writes the database to the user's file. Throws `Error`. After any failure, the file holds
    /// either the complete old content or the complete new one.
    void saveDatabase(const Database& database);

    /// Copies the user's file to "pelk.db.bak". An earlier copy with other content becomes
    /// "pelk.db.bak-2" and then "pelk.db.bak-3". Callers call this before each change that removes
    /// contacts. Only the first call on this object copies the file, so the copy is from before the
    /// first such change. Throws `Error` when the copy fails.
    void keepBackup();

    /// Returns the database in "pelk.db.bak"; one that is null when there is no such file. Throws
    /// `DamagedData`, or `Error` when the file cannot be read.
    OpenedDatabase readBackup();

    /// Returns the path of "pelk.db.bak".
    std::string backupFile();

    /// Writes the database to a file of the user's choice, as atomically as `saveDatabase`. Throws
    /// `Error`.
    void exportDatabase(const Database& database, const std::string& path);

    /// Writes the database without encryption to "pelkdb.xml": next to the add-in, or next to the
    /// user's file if the program's folder does not belong to the user. Throws `Error`.
    void writePlainCopy(const Database& database);

    /// Returns the database in an exported file. Throws `DamagedData` when the file is not a
    /// database, and `Error` when it cannot be read.
    std::unique_ptr<Database> importDatabase(const std::string& path);

    /// Replaces the user's file with the database, and keeps the old file next to it. Returns the
    /// path of the old file; empty when there was none. Throws `Error`.
    std::string replaceDatabase(const Database& database);

    /// Returns the path of the folder of the user's file. The folder need not exist.
    std::string databaseFolder();

    /// Returns the path of the user's file, which need not exist.
    std::string databasePath() { return nameFile(); }

    /// Returns the text of the encrypted file with that name in the database's folder; nothing when
    /// there is none. Throws `DamagedData`, or `Error` when the file cannot be read.
    std::optional<std::string> readBeside(const std::string& name);

    /// Encrypts the text and writes it to a file with that name in the database's folder, as
    /// atomically as `saveDatabase`. Throws `Error`.
    void writeBeside(const std::string& name, std::string text);

    /// Delays `writeBeside` until just before the next save of the database. If the text cannot be
    /// written, that save fails and writes no database either. Until then `readBeside` returns this
    /// text.
    void holdBeside(const std::string& name, std::string text);

    /// Removes that file if it exists. Throws `Error`.
    void removeBeside(const std::string& name);

    /// Sets the companion, which is told of all saves from now on; null for none.
    void setCompanion(Companion* companion) { companion_ = companion; }

    /// Returns the text of the companion's file; nothing or an empty text when there is none.
    /// Throws `DamagedData`, or `Error` when the file cannot be read.
    std::optional<std::string> readCompanion();

    /// Saves this text of the companion with the next save of the database: whatever fails, and
    /// whenever the program crashes, the next program finds both as before or both as they are now.
    /// An empty text stands for no file.
    void pairWithNextSave(std::string text) { paired_ = std::move(text); }

    /// Writes the companion's file without the database. Throws `Error`.
    void writeCompanion(std::string text);

    /// Renames the companion's file, which is damaged, and returns its new path; empty when there
    /// is no file. Throws `Error`.
    std::string setCompanionAside();

    /// Let the companion follow, within the current step, a loss of contacts, or the database that
    /// came from "pelk.db.bak". Throw `Error`.
    void followLosses(Database& database);
    void restoreCompanion(Database& database);

    /// Returns the text of an encrypted file, or writes one, as atomically as `saveDatabase`. Throw
    /// as `readCompanion` does, or `Error`.
    std::optional<std::string> readExported(const std::string& path);
    void writeExported(std::string text, const std::string& path) {
        writeEncrypted(std::move(text), path);
    }
    /// Removes a file if it exists. Throws `Error`.
    void removeIfThere(const std::string& path);

    /// Returns the database in a plain document. Throws `DamagedData` when the text is not one.
    std::unique_ptr<Database> parse(std::string xml);

 private:
    std::string makeFolder();
    std::string folderIn(const std::optional<std::string>& data);
    std::string nameBeside(const std::string& name);
    std::string nameFile();
    std::string placeFile();
    OpenedDatabase openOrSetAside(const std::string& path);
    std::unique_ptr<Database> emptyDatabase();
    std::unique_ptr<Database> createFirstDatabase(const std::string& path);
    void keepCopy(const std::string& content, const std::string& newest, int age);
    std::string decrypt(const std::string& content);
    std::string freeName(const std::string& path, const std::string& purpose);
    void writeEncrypted(std::string text, const std::string& path);
    void writeWholeFile(const std::string& content, const std::string& path);
    FreshFile fillEncrypted(std::string text, const std::string& path, std::string* start);
    void removeLeftover(const std::string& path) noexcept;
    void writeHeld();
    void saveDocument(const Database& database, const std::string& path);
    void saveWithCompanion(const Database& database, const std::string& path);
    std::string writeWaiting(std::string_view databaseStart);
    std::string waitingCompanion(std::string_view databaseFile);
    std::string waitingCompanion();
    std::string companionPath();
    std::string companionBackup();
    void settleCompanion(const std::string& waiting) noexcept;
    void requireSettledCompanion();
    void keepCompanionBackup();
    std::string encrypted(std::string text);

    Platform platform_;
    /// The delayed texts by file name.
    std::map<std::string, std::string> held_;
    bool backupKept_ = false;
    Companion* companion_ = nullptr;
    std::optional<std::string> paired_;
    /// Whether a written companion could not be given its name.
    bool companionWaits_ = false;
};

}  // namespace pelk
