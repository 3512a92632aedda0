#include "maintenance/database_import.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "db/default_documents.h"

namespace pelk {
namespace {

std::unique_ptr<Database> readFile(const std::string& path, Storage& storage) {
    try {
        return storage.importDatabase(path);
    } catch (const Error&) {
        return nullptr;
    }
}

void replaceAndSave(Database& current, std::unique_ptr<Database> content, Storage& storage) {
    storage.keepBackup();
    storage.saveDatabase(*content);
    current.replaceContent(std::move(*content));
}

}  // namespace

ImportOutcome importDatabaseFile(Database& current, const std::string& path, Storage& storage,
                                 ImportGuide& guide) {
    const std::unique_ptr<Database> imported = readFile(path, storage);
    if (!imported)
        return ImportOutcome::Unreadable;
    const std::uint64_t revision = current.revision();
    std::unique_ptr<Database> merged = storage.parse(current.xml());
    if (!importMerge(*merged, *imported, guide))
        return ImportOutcome::Ended;
    if (current.revision() != revision)
        throw Error(
            "The database has been changed during the import. Nothing was imported; please "
            "import the file again.");
    replaceAndSave(current, std::move(merged), storage);
    storage.writePlainCopy(current);
    return ImportOutcome::Imported;
}

void deleteDatabase(Database& current, Storage& storage) {
    replaceAndSave(current, storage.parse(std::string(kEmptiedDocument)), storage);
}

}  // namespace pelk
