#pragma once
// The database on disk: one encrypted file in the user's data folder, and copies of it that the
// user exports and imports.

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "db/database.h"
#include "db/database_cipher.h"
#include "platform/platform.h"

namespace pelk {

/// A database that is not null.
struct OpenedDatabase {
    std::unique_ptr<Database> database;
    /// What the user is to be told of it: what had to be put right, or that a damaged file has been
    /// set aside and this database is an empty one.
    std::optional<std::string> notice;
};

/// Whatever needs the folder of the user's file throws `NoDataFolder` when the system names none.
class Storage {
 public:
    explicit Storage(const Platform& platform) : platform_(platform) {}

    /// The user's database; an empty one at the first start, when folder and file are created. A
    /// file that is damaged or not a database is kept under another name beside it, and the
    /// database is an empty one, in memory only. Throws `Error` when the file cannot be read or
    /// written, or a library fails: the file is then left as it is. No other program may be saving
    /// meanwhile.
    OpenedDatabase loadDatabase();

    /// The same for whoever may have nothing to save: at the first start, too, the empty database
    /// stands in memory only.
    OpenedDatabase openDatabase();

    /// The same for whoever only reads: nothing is created, renamed or written. Throws
    /// `DamagedData` when the file is not a database.
    OpenedDatabase readDatabase();

    /// Writes the database to the user's file. Whatever goes wrong, the file holds either what it
    /// held or the new content, whole. Throws `Error`.
    void saveDatabase(const Database& database);

    /// Keeps the user's file, as it stands, beside it as "pelk.db.bak"; an earlier copy becomes
    /// "pelk.db.bak-2" and then "pelk.db.bak-3", unless it is the same. To be called before a
    /// change that removes contacts; only the first call of this object's life copies the file, so
    /// that the copy is from before the first such change. Throws `Error` when it cannot be kept.
    void keepBackup();

    /// Writes the database to a file of the user's choice, as safely. Throws `Error`.
    void exportDatabase(const Database& database, const std::string& path);

    /// Writes the database, not encrypted, as "pelkdb.xml": beside the add-in, or where the
    /// program's folder is not the user's own, beside the user's file. Throws `Error`.
    void writePlainCopy(const Database& database);

    /// The database in an exported file. Throws `DamagedData` when the file is not a database, and
    /// `Error` when it cannot be read.
    std::unique_ptr<Database> importDatabase(const std::string& path);

    /// Replaces the user's file by the database, and keeps the file that was there beside it.
    /// Returns the path under which it is kept, empty when there was none. Throws `Error`.
    std::string replaceDatabase(const Database& database);

    /// The path of the folder of the user's file, which may be missing.
    std::string databaseFolder();

    /// The text of a sealed document that lies beside the database under that file name; nothing
    /// when there is none. Throws `DamagedData`, or `Error` when it cannot be read.
    std::optional<std::string> readBeside(const std::string& name);

    /// Seals the text and writes it beside the database, as safely. Throws `Error`.
    void writeBeside(const std::string& name, std::string text);

    /// Has `writeBeside` done just before the database is next saved: a save that cannot write the
    /// text fails and writes no database either. Until then `readBeside` gives this text.
    void holdBeside(const std::string& name, std::string text);

    /// Removes it, if it is there. Throws `Error`.
    void removeBeside(const std::string& name);

    /// A database from a plain document. Throws `DamagedData` when the text is no such document.
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
    void writeFile(const std::string& path, const std::function<void(WritableFile&)>& fill);
    void removeLeftover(const std::string& path) noexcept;
    void writeHeld();

    Platform platform_;
    /// Texts by the names under which they are to be written.
    std::map<std::string, std::string> held_;
    bool backupKept_ = false;
};

}  // namespace pelk
