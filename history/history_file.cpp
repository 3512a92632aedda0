#include "history/history_file.h"

#include <utility>

#include "db/damaged_data.h"

namespace pelk {
namespace {

/// Whether an address belongs to a contact.
auto ownership(const Database& database) {
    return [&database](const std::string& address) { return database.ownerOf(address) != 0; };
}

}  // namespace

HistoryFile::HistoryFile(Storage& storage, const Platform& platform)
    : storage_(storage), makeDocument_(platform.createXmlDocument) {
    storage_.setCompanion(this);
}

HistoryFile::~HistoryFile() {
    storage_.setCompanion(nullptr);
}

HistoryContent& HistoryFile::content() {
    if (content_)
        return *content_;
    HistoryContent content;
    try {
        if (std::optional<std::string> text = storage_.readCompanion(); text && !text->empty())
            content = read(std::move(*text));
    } catch (const DamagedData& error) {
        notice_ = "The history of the relations, " + std::string(kCompanionName) +
                  ", cannot be used. " + error.what() +
                  " The next scan counts it anew and keeps the file under another name.";
    }
    return content_.emplace(std::move(content));
}

HistoryContent HistoryFile::read(std::string text) const {
    return readHistory(std::move(text), makeDocument_);
}

std::optional<std::string> HistoryFile::notice() {
    content();
    return notice_;
}

std::vector<std::string> HistoryFile::ownAddresses() {
    std::vector<std::string> addresses;
    for (OwnAddress& own : explainedOwnAddresses())
        addresses.push_back(std::move(own.address));
    return addresses;
}

std::vector<OwnAddress> HistoryFile::explainedOwnAddresses() {
    if (content().ownAddresses.empty())
        return findOwnAddresses(history());
    std::vector<OwnAddress> own;
    for (const std::string& address : content().ownAddresses)
        own.push_back({address, "set by you"});
    return own;
}

void HistoryFile::setOwnAddresses(const std::vector<std::string>& addresses) {
    const std::vector<std::string> before = std::exchange(content().ownAddresses, addresses);
    try {
        setDamagedAside();
        storage_.writeCompanion(textOf(*content_, makeDocument_));
    } catch (...) {
        content_->ownAddresses = before;
        throw;
    }
    isChanged_ = false;
}

void HistoryFile::setDamagedAside() {
    if (notice_)
        storage_.setCompanionAside();
    notice_.reset();
}

void HistoryFile::addScan(History&& counted, StoreDates stores, const std::string& date) {
    HistoryContent& current = content();
    current.history.add(std::move(counted));
    current.stores = std::move(stores);
    current.date = date;
    isChanged_ = true;
}

void HistoryFile::exportTo(const std::string& path) {
    HistoryContent exported;
    exported.history = history();
    exported.history.forgetUser();
    if (exported.empty())
        storage_.removeIfThere(path);
    else
        storage_.writeExported(textOf(exported, makeDocument_), path);
}

std::optional<History> HistoryFile::readExported(const std::string& path) {
    std::optional<std::string> text = storage_.readExported(path);
    if (!text)
        return std::nullopt;
    return read(std::move(*text)).history;
}

void HistoryFile::addInStep(Database& database, History&& other) {
    other.keepOnly(ownership(database));
    changeInStep(database, std::make_shared<HistoryChange>(content().history.additionOf(other)));
}

void HistoryFile::changeInStep(Database& database, const std::shared_ptr<HistoryChange>& change) {
    database.changeOutside([this, change] {
        content_->history.swap(*change);
        isChanged_ = true;
    });
}

/// The counter of losses says at once that a merge has lost nothing.
void HistoryFile::followLosses(Database& database) {
    if (database.losses() != losses_)
        forgetUnowned(database);
    losses_ = database.losses();
}

/// After its deletion, the database counts all mail again, and so does the history.
void HistoryFile::forgetUnowned(Database& database) {
    if (database.date() == kNeverScanned && database.contactCount() == 0) {
        HistoryContent nothing;
        nothing.ownAddresses = content().ownAddresses;
        swapContent(database, std::move(nothing));
        return;
    }
    changeInStep(database, std::make_shared<HistoryChange>(
                               content().history.removalOfOthers(ownership(database))));
}

void HistoryFile::restore(Database& database, std::optional<std::string> text) {
    if (text)
        swapContent(database, text->empty() ? HistoryContent() : read(std::move(*text)));
    else
        forgetUnowned(database);
    losses_ = database.losses();
}

void HistoryFile::swapContent(Database& database, HistoryContent&& other) {
    content();
    const auto kept = std::make_shared<HistoryContent>(std::move(other));
    database.changeOutside([this, kept] {
        content_->swap(*kept);
        isChanged_ = true;
    });
}

void HistoryFile::prepareSave() {
    if (!isChanged_)
        return;
    setDamagedAside();
    storage_.pairWithNextSave(content_->empty() ? std::string() : textOf(*content_, makeDocument_));
    isChanged_ = false;
}

}  // namespace pelk
