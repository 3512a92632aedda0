// The part of `Storage` that saves the database together with its companion.
//
// Two files cannot be replaced at once. So the companion's new file first waits beside the old one,
// under a temporary name made from the start of the new database's file, which differs for each
// content. It counts as soon as the database has that content; then it is renamed. A crash before
// that leaves a temporary file that belongs to no database, which is removed as any other.

#include <algorithm>
#include <utility>

#include "db/storage.h"

namespace pelk {
namespace {

/// As many characters of the database's file as its version and its nonce have.
constexpr std::size_t kStart = 22;

/// Returns the number for a temporary name: FNV-1a with 64 bits, see draft-eastlake-fnv.
TemporaryNumber numberOf(std::string_view databaseStart) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;
    for (const char c : databaseStart.substr(0, kStart))
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    TemporaryNumber number;
    for (unsigned char& byte : number) {
        byte = static_cast<unsigned char>(hash);
        hash >>= 8U;
    }
    return number;
}

}  // namespace

void Storage::saveWithCompanion(const Database& database, const std::string& path) {
    std::string start;
    FreshFile fresh = fillEncrypted(database.xml(), path, &start);
    const std::string waiting = writeWaiting(start);
    try {
        fresh.replaceTarget();
    } catch (...) {
        removeLeftover(waiting);
        throw;
    }
    const bool isGone = paired_->empty();
    paired_.reset();
    settleCompanion(waiting);
    // A file with an empty text means the same, so the removal may fail.
    if (isGone && !companionWaits_)
        removeLeftover(nameBeside(kCompanionName));
}

/// Writes the companion's text to the file that belongs to the database with that start, and
/// returns its path.
std::string Storage::writeWaiting(std::string_view databaseStart) {
    const std::string waiting = temporaryName(nameBeside(kCompanionName), numberOf(databaseStart));
    writeEncrypted(*paired_, waiting);
    return waiting;
}

/// Returns the path of the waiting file that belongs to the database with that file; empty when
/// there is none.
std::string Storage::waitingCompanion(std::string_view databaseFile) {
    const std::string waiting = temporaryName(nameBeside(kCompanionName), numberOf(databaseFile));
    return platform_.files.fileExists(waiting) ? waiting : std::string();
}

std::string Storage::waitingCompanion() {
    const std::string path = nameFile();
    return platform_.files.fileExists(path) ? waitingCompanion(platform_.files.readWholeFile(path))
                                            : std::string();
}

/// Returns the path of the file that has the companion's current content.
std::string Storage::companionPath() {
    const std::string waiting = waitingCompanion();
    return waiting.empty() ? nameBeside(kCompanionName) : waiting;
}

/// Gives the waiting file its name. If that fails, the file goes on waiting, and both are saved.
void Storage::settleCompanion(const std::string& waiting) noexcept {
    try {
        if (!waiting.empty())
            platform_.files.replaceFile(waiting, nameBeside(kCompanionName));
        companionWaits_ = false;
    } catch (const std::exception&) {
        companionWaits_ = true;
    }
}

/// Makes sure that no file waits any longer. Throws `Error` when one does.
void Storage::requireSettledCompanion() {
    if (!companionWaits_)
        return;
    if (const std::string waiting = waitingCompanion(); !waiting.empty())
        platform_.files.replaceFile(waiting, nameBeside(kCompanionName));
    companionWaits_ = false;
}

std::optional<std::string> Storage::readCompanion() {
    if (paired_)
        return paired_;
    return readExported(companionPath());
}

void Storage::writeCompanion(std::string text) {
    makeFolder();
    requireSettledCompanion();
    writeEncrypted(std::move(text), nameBeside(kCompanionName));
    paired_.reset();
}

std::string Storage::setCompanionAside() {
    const std::string path = companionPath();
    if (!platform_.files.fileExists(path))
        return {};
    std::string kept = freeName(nameBeside(kCompanionName), "damaged");
    platform_.files.replaceFile(path, kept);
    return kept;
}

void Storage::followLosses(Database& database) {
    if (companion_ != nullptr)
        companion_->followLosses(database);
}

void Storage::restoreCompanion(Database& database) {
    if (companion_ != nullptr)
        companion_->restore(database, readExported(companionBackup()));
}

std::string Storage::companionBackup() {
    return nameBeside(kCompanionName) + ".bak";
}

/// Keeps a copy of the companion's file with the copy of the database. A copy of an empty text
/// stands for a companion that had no file, beside older copies that have one.
void Storage::keepCompanionBackup() {
    const std::string path = companionPath();
    if (platform_.files.fileExists(path))
        keepCopy(platform_.files.readWholeFile(path), companionBackup(), 1);
    else if (platform_.files.fileExists(companionBackup()))
        keepCopy(encrypted({}), companionBackup(), 1);
}

}  // namespace pelk
