#include "db/storage.h"

#include <utility>

#include "db/damaged_data.h"
#include "db/default_documents.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

/// Fixed and public: it keeps a curious glance off the file, and tells damage. What it does not
/// do is said in docs/database-format.md.
constexpr std::string_view kKey = "TPPGHYQXKZPBQIVNHATUGWMSWK53927FPYTD";

constexpr const char* kFolderName = "pelk";
constexpr const char* kFileName = "pelk.db";
constexpr const char* kPlainCopyName = "pelkdb.xml";

MakeText textOf(const Database& database) {
    return [&database](const TakePiece& watch) { return database.xml(watch); };
}

}  // namespace

std::unique_ptr<Database> Storage::loadDatabase() {
    const std::optional<std::string> path = locateFile();
    if (!path)
        return nullptr;
    if (!platform_.files.fileExists(*path))
        return createFirstDatabase(*path);
    const std::string content = platform_.files.readWholeFile(*path);
    try {
        return open(content);
    } catch (const DamagedData& error) {
        const std::string kept = freeName(*path, "damaged");
        platform_.files.replaceFile(*path, kept);
        platform_.dialogs.message("The database file " + *path + " cannot be used. " +
                                      error.what() + " It has been kept as " + kept +
                                      ", and Pelk goes on with an empty database.",
                                  Buttons::Ok);
        return createFirstDatabase(*path);
    }
}

void Storage::saveDatabase(const Database& database) {
    if (const std::optional<std::string> path = locateFile())
        writeCipherText(textOf(database), *path);
}

void Storage::saveChange(const Database& database) {
    try {
        saveDatabase(database);
    } catch (const Error& error) {
        platform_.dialogs.message(std::string(error.what()) +
                                      " The change stands in memory only, and will be saved with "
                                      "the next change.",
                                  Buttons::Ok);
    }
}

void Storage::keepBackup() {
    if (backupKept_)
        return;
    const std::optional<std::string> path = locateFile();
    if (!path || !platform_.files.fileExists(*path))
        return;
    writeWholeFile(platform_.files.readWholeFile(*path), *path + ".bak");
    backupKept_ = true;
}

void Storage::exportDatabase(const Database& database, const std::string& path) {
    writeCipherText(textOf(database), path);
}

/// In the encoding that the document's declaration names.
void Storage::writePlainCopy(const Database& database) {
    std::optional<std::string> folder = platform_.shell.ownFolder();
    if (!folder)
        folder = databaseFolder();
    if (folder)
        writeWholeFile(utf16FileBytes(database.xml()),
                       platform_.files.join(*folder, kPlainCopyName));
}

std::unique_ptr<Database> Storage::importDatabase(const std::string& path) {
    const std::string content = platform_.files.readWholeFile(path);
    try {
        return open(content);
    } catch (const DamagedData& error) {
        throw DamagedData("The file " + path + " cannot be used. " + error.what());
    }
}

std::string Storage::replaceDatabase(const Database& database) {
    const std::optional<std::string> path = locateFile();
    if (!path)
        return {};
    std::string kept;
    if (platform_.files.fileExists(*path)) {
        kept = freeName(*path, "old");
        writeWholeFile(platform_.files.readWholeFile(*path), kept);
    }
    writeCipherText(textOf(database), *path);
    return kept;
}

std::optional<std::string> Storage::readBeside(const std::string& name) {
    const std::optional<std::string> folder = platform_.shell.applicationDataFolderName();
    if (!folder)
        return std::nullopt;
    const std::string path = platform_.files.join(platform_.files.join(*folder, kFolderName), name);
    if (!platform_.files.fileExists(path))
        return std::nullopt;
    const std::string content = platform_.files.readWholeFile(path);
    try {
        return decipher(content);
    } catch (const DamagedData& error) {
        throw DamagedData("The file " + path + " cannot be used. " + error.what());
    }
}

void Storage::writeBeside(const std::string& name, std::string text) {
    const std::optional<std::string> folder = databaseFolder();
    if (!folder)
        throw Error("There is no folder for the file " + name + ".");
    writeCipherText(readyText(std::move(text)), platform_.files.join(*folder, name));
}

void Storage::removeBeside(const std::string& name) {
    const std::optional<std::string> folder = platform_.shell.applicationDataFolderName();
    if (!folder)
        return;
    const std::string path = platform_.files.join(platform_.files.join(*folder, kFolderName), name);
    if (platform_.files.fileExists(path))
        platform_.files.removeFile(path);
}

std::unique_ptr<Database> Storage::parse(std::string xml) {
    std::unique_ptr<XmlDocument> document = platform_.createXmlDocument();
    if (!document->loadXml(std::move(xml)))
        throw DamagedData("It holds no well-formed document (" + document->parseError() + ").");
    return std::make_unique<Database>(std::move(document));
}

std::optional<std::string> Storage::databaseFolder() {
    const std::optional<std::string> data = platform_.shell.applicationDataFolder();
    if (!data) {
        platform_.dialogs.message("Serious error, cannot access the application data directory !",
                                  Buttons::Ok);
        return std::nullopt;
    }
    const std::string folder = platform_.files.join(*data, kFolderName);
    if (!platform_.files.folderExists(folder))
        platform_.files.createFolder(folder);
    return folder;
}

/// The path of the user's file; nothing, after a message, when there is no folder for it.
std::optional<std::string> Storage::locateFile() {
    const std::optional<std::string> folder = databaseFolder();
    return folder ? std::optional(platform_.files.join(*folder, kFileName)) : std::nullopt;
}

/// Writes the default document to the file and reads it back from there.
std::unique_ptr<Database> Storage::createFirstDatabase(const std::string& path) {
    writeCipherText(readyText(std::string(kFirstStartDocument)), path);
    return open(platform_.files.readWholeFile(path));
}

std::unique_ptr<Database> Storage::open(const std::string& content) {
    return parse(decipher(content));
}

std::string Storage::decipher(const std::string& content) {
    DatabaseCipher cipher(platform_.crypto);
    cipher.setKey(kKey);
    return cipher.decipher(content);
}

/// A name beside the path under which nothing stands yet.
std::string Storage::freeName(const std::string& path, const std::string& purpose) {
    const std::string first = path + "." + purpose;
    std::string name = first;
    for (int number = 2; platform_.files.fileExists(name); ++number)
        name = first + "-" + std::to_string(number);
    return name;
}

/// The file holds the cipher text as one line.
void Storage::writeCipherText(const MakeText& makeText, const std::string& path) {
    DatabaseCipher cipher(platform_.crypto);
    cipher.setKey(kKey);
    writeFile(path, [&](WritableFile& file) {
        cipher.encipher(makeText, [&file](std::string_view piece) { file.write(piece); });
        file.write("\r\n");
    });
}

void Storage::writeWholeFile(const std::string& content, const std::string& path) {
    writeFile(path, [&content](WritableFile& file) { file.write(content); });
}

/// Fills a new file beside the old one and puts it in its place once it is safely on the disk.
void Storage::writeFile(const std::string& path, const std::function<void(WritableFile&)>& fill) {
    const std::string fresh = path + ".new";
    try {
        const std::unique_ptr<WritableFile> file = platform_.files.createFile(fresh);
        fill(*file);
        file->flushToDisk();
        file->close();
        platform_.files.replaceFile(fresh, path);
    } catch (const Error&) {
        removeLeftover(fresh);
        throw;
    }
}

/// Tidies up after a write that failed, whose own error is the one to report.
void Storage::removeLeftover(const std::string& path) noexcept {
    try {
        if (platform_.files.fileExists(path))
            platform_.files.removeFile(path);
    } catch (const std::exception&) {
        // The next write empties the file before it uses it.
    }
}

}  // namespace pelk
