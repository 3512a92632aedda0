#include "db/storage.h"

#include <utility>

#include "db/damaged_data.h"
#include "db/default_documents.h"
#include "db/no_data_folder.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

/// The key is fixed and public: it protects the file from a casual look and detects damage.
/// docs/database-format.md says what it does not do.
constexpr std::string_view kKey = "TPPGHYQXKZPBQIVNHATUGWMSWK53927FPYTD";

constexpr const char* kFolderName = "pelk";
constexpr const char* kFileName = "pelk.db";
constexpr const char* kPlainCopyName = "pelkdb.xml";
/// The number of backups.
constexpr int kCopies = 3;

/// Returns the result of `judge`, which examines the content of a file. Adds the path to the
/// message of `DamagedData`.
template <typename Judge>
auto naming(const std::string& path, const Judge& judge) {
    try {
        return judge();
    } catch (const DamagedData& error) {
        throw DamagedData("The file " + path + " cannot be used. " + error.what());
    }
}

/// Corrects the count of contacts.
OpenedDatabase withRightCount(std::unique_ptr<Database> database) {
    std::optional<std::string> putRight = database->putCountRight();
    return {std::move(database), std::move(putRight)};
}

}  // namespace

OpenedDatabase Storage::loadDatabase() {
    const std::string path = placeFile();
    OpenedDatabase opened = openOrSetAside(path);
    if (!opened.database)
        opened.database = createFirstDatabase(path);
    return opened;
}

OpenedDatabase Storage::openDatabase() {
    OpenedDatabase opened = openOrSetAside(nameFile());
    if (!opened.database)
        opened.database = emptyDatabase();
    return opened;
}

OpenedDatabase Storage::readDatabase() {
    const std::string path = nameFile();
    return platform_.files.fileExists(path) ? withRightCount(importDatabase(path))
                                            : OpenedDatabase{emptyDatabase(), std::nullopt};
}

void Storage::saveDatabase(const Database& database) {
    saveDocument(database, placeFile());
}

void Storage::saveDocument(const Database& database, const std::string& path) {
    if (companion_ != nullptr)
        companion_->prepareSave();
    writeHeld();
    requireSettledCompanion();
    // Most databases without a history lose contacts without having had one.
    if (paired_ && paired_->empty() && !platform_.files.fileExists(nameBeside(kCompanionName)))
        paired_.reset();
    if (paired_)
        saveWithCompanion(database, path);
    else
        writeEncrypted(database.xml(), path);
}

void Storage::keepBackup() {
    if (backupKept_)
        return;
    const std::string path = nameFile();
    if (!platform_.files.fileExists(path))
        return;
    keepCopy(platform_.files.readWholeFile(path), backupFile(), 1);
    keepCompanionBackup();
    backupKept_ = true;
}

OpenedDatabase Storage::readBackup() {
    const std::string path = backupFile();
    if (!platform_.files.fileExists(path))
        return {};
    return withRightCount(importDatabase(path));
}

std::string Storage::backupFile() {
    return nameFile() + ".bak";
}

/// Stores the content as the backup of that age, from 1 for the newest to `kCopies`. Stores the
/// previous backup of that age as the next older one first, so that it always exists under one of
/// the two names.
void Storage::keepCopy(const std::string& content, const std::string& newest, int age) {
    const std::string name = age == 1 ? newest : newest + "-" + std::to_string(age);
    if (platform_.files.fileExists(name)) {
        const std::string before = platform_.files.readWholeFile(name);
        if (before == content)
            return;
        if (age < kCopies)
            keepCopy(before, newest, age + 1);
    }
    writeWholeFile(content, name);
}

void Storage::exportDatabase(const Database& database, const std::string& path) {
    writeEncrypted(database.xml(), path);
}

/// Uses the encoding that the document's declaration names.
void Storage::writePlainCopy(const Database& database) {
    const std::optional<std::string> own = platform_.shell.ownFolder();
    const std::string folder = own ? *own : makeFolder();
    writeWholeFile(utf16FileBytes(database.xml()), platform_.files.join(folder, kPlainCopyName));
}

std::unique_ptr<Database> Storage::importDatabase(const std::string& path) {
    const std::string content = platform_.files.readWholeFile(path);
    return naming(path, [&] { return parse(decrypt(content)); });
}

std::string Storage::replaceDatabase(const Database& database) {
    const std::string path = placeFile();
    std::string kept;
    if (platform_.files.fileExists(path)) {
        kept = freeName(path, "old");
        writeWholeFile(platform_.files.readWholeFile(path), kept);
    }
    saveDocument(database, path);
    return kept;
}

std::optional<std::string> Storage::readBeside(const std::string& name) {
    if (const auto held = held_.find(name); held != held_.end())
        return held->second;
    return readExported(nameBeside(name));
}

std::optional<std::string> Storage::readExported(const std::string& path) {
    if (!platform_.files.fileExists(path))
        return std::nullopt;
    const std::string content = platform_.files.readWholeFile(path);
    return naming(path, [&] { return decrypt(content); });
}

void Storage::writeBeside(const std::string& name, std::string text) {
    const std::string path = platform_.files.join(makeFolder(), name);
    writeEncrypted(std::move(text), path);
}

void Storage::holdBeside(const std::string& name, std::string text) {
    held_[name] = std::move(text);
}

void Storage::writeHeld() {
    while (!held_.empty()) {
        const auto& [name, text] = *held_.begin();
        writeBeside(name, text);
        held_.erase(held_.begin());
    }
}

void Storage::removeBeside(const std::string& name) {
    removeIfThere(nameBeside(name));
}

void Storage::removeIfThere(const std::string& path) {
    if (platform_.files.fileExists(path))
        platform_.files.removeFile(path);
}

std::unique_ptr<Database> Storage::parse(std::string xml) {
    std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml(std::move(xml)))
        throw DamagedData("It holds no well-formed document (" + document->parseError() + ").");
    return std::make_unique<Database>(std::move(document));
}

std::string Storage::databaseFolder() {
    return folderIn(platform_.shell.applicationDataFolderName());
}

/// Returns the folder of the user's file, and creates it if it is missing.
std::string Storage::makeFolder() {
    std::string folder = folderIn(platform_.shell.applicationDataFolder());
    if (!platform_.files.folderExists(folder))
        platform_.files.createFolder(folder);
    return folder;
}

/// Returns the folder of the user's file within the data folder.
std::string Storage::folderIn(const std::optional<std::string>& data) {
    if (!data)
        throw NoDataFolder();
    return platform_.files.join(*data, kFolderName);
}

/// Returns the path of a file in the folder of the user's file.
std::string Storage::nameBeside(const std::string& name) {
    return platform_.files.join(databaseFolder(), name);
}

std::string Storage::nameFile() {
    return nameBeside(kFileName);
}

/// Returns the path of the user's file, and creates its folder if it is missing.
std::string Storage::placeFile() {
    return platform_.files.join(makeFolder(), kFileName);
}

/// Returns the database in the file, an empty one when the file was damaged and has been renamed,
/// or none when there is no file. Removes leftover temporary files: the caller prevents other
/// programs from writing, so no program uses them.
OpenedDatabase Storage::openOrSetAside(const std::string& path) {
    if (!platform_.files.fileExists(path)) {
        platform_.files.removeLeftovers(databaseFolder());
        return {};
    }
    const std::string content = platform_.files.readWholeFile(path);
    settleCompanion(waitingCompanion(content));
    if (!companionWaits_)
        platform_.files.removeLeftovers(databaseFolder());
    try {
        return withRightCount(parse(decrypt(content)));
    } catch (const DamagedData& error) {
        const std::string kept = freeName(path, "damaged");
        // Created first, because nothing may fail after the file has been renamed.
        OpenedDatabase empty{emptyDatabase(), "The database file " + path + " cannot be used. " +
                                                  error.what() + " It has been kept as " + kept +
                                                  ", and Pelk goes on with an empty database."};
        platform_.files.replaceFile(path, kept);
        return empty;
    }
}

std::unique_ptr<Database> Storage::emptyDatabase() {
    return parse(std::string(kFirstStartDocument));
}

/// Writes the default document to the file and reads it back from there.
std::unique_ptr<Database> Storage::createFirstDatabase(const std::string& path) {
    writeEncrypted(std::string(kFirstStartDocument), path);
    return parse(decrypt(platform_.files.readWholeFile(path)));
}

std::string Storage::decrypt(const std::string& content) {
    DatabaseCipher cipher(platform_.crypto);
    cipher.setKey(kKey);
    return cipher.decrypt(content);
}

/// Returns an unused path that begins with `path` and the purpose.
std::string Storage::freeName(const std::string& path, const std::string& purpose) {
    const std::string first = path + "." + purpose;
    std::string name = first;
    for (int number = 2; platform_.files.fileExists(name); ++number)
        name = first + "-" + std::to_string(number);
    return name;
}

void Storage::writeEncrypted(std::string text, const std::string& path) {
    fillEncrypted(std::move(text), path, nullptr).replaceTarget();
}

void Storage::writeWholeFile(const std::string& content, const std::string& path) {
    writeWholeFiles(platform_.files,
                    {{path, [&content](WritableFile& file) { file.write(content); }}});
}

std::string Storage::encrypted(std::string text) {
    DatabaseCipher cipher(platform_.crypto);
    cipher.setKey(kKey);
    std::string file;
    cipher.encrypt(std::move(text), [&file](std::string_view piece) { file += piece; });
    return file + "\r\n";
}

/// Encrypts the text into a new file, which consists of one line. Stores the start of the line,
/// which differs for each text.
FreshFile Storage::fillEncrypted(std::string text, const std::string& path, std::string* start) {
    DatabaseCipher cipher(platform_.crypto);
    cipher.setKey(kKey);
    const auto fill = [&](WritableFile& file) {
        cipher.encrypt(std::move(text), [&file, start](std::string_view piece) {
            if (start != nullptr && start->empty())
                *start = piece;
            file.write(piece);
        });
        file.write("\r\n");
    };
    return {platform_.files, {path, fill}};
}

/// Removes a file after a failed write. Only the error of the write is reported.
void Storage::removeLeftover(const std::string& path) noexcept {
    try {
        platform_.files.removeFile(path);
    } catch (const std::exception&) {
        // The file remains; the next writer of the database removes it.
    }
}

}  // namespace pelk
