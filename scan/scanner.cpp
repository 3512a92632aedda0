#include "scan/scanner.h"

#include <algorithm>
#include <vector>

#include "db/folder_marks_file.h"
#include "db/store_dates_file.h"
#include "scan/store_sample.h"

namespace pelk {

Scanner::Scanner(Database& database, const Language& language, ScanProgress& progress)
    : Scanner(database, language, progress, StoreLedger(database.date()), {}) {}

Scanner::Scanner(Database& database, const Language& language, ScanProgress& progress,
                 StoreLedger ledger, const ScanOptions& options)
    : database_(database),
      progress_(progress),
      options_(options),
      ledger_(std::move(ledger)),
      recorder_(database, language, steps_, outcome_) {}

ScanOutcome Scanner::scan(MailSession& session) {
    const std::size_t contactsBefore = database_.contactCount();
    const std::size_t relationsBefore = database_.relationCount();
    session_ = &session;
    reachedAllStores_ = steps_.attempt([this] { scanStores(); });
    outcome_.contacts = database_.contactCount() - contactsBefore;
    outcome_.relations = database_.relationCount() - relationsBefore;
    outcome_.unreadCountsLater = hasUnread_ && unreadCountsLater_;
    return std::move(outcome_);
}

/// Returns the folder's place, or that of its parent when the folder reports none.
std::string Scanner::placeOf(MailFolder& folder, const std::string& above) {
    std::string place;
    steps_.attempt([&] { place = folder.place(); });
    return place.empty() ? above : place;
}

void Scanner::scanStores() {
    const std::unique_ptr<MailFolders> stores = session_->folders();
    while (std::unique_ptr<MailFolder> store = stores->next())
        scanStore(*store);
}

void Scanner::scanStore(MailFolder& store) {
    const std::string place = placeOf(store, {});
    int clockTolerance = 0;
    steps_.attempt([&] { clockTolerance = store.clockTolerance(); });
    noteStore(store,
              ledger_.beginStore(
                  place, [this, &store] { return takeSample(*session_, store); }, clockTolerance));
    copies_.beginStore();
    scanBranch(store, place);
    if (!ledger_.endStore())
        unreadCountsLater_ = false;
}

void Scanner::scanTree(MailFolders& folders, const std::string& above) {
    while (std::unique_ptr<MailFolder> folder = folders.next())
        scanBranch(*folder, placeOf(*folder, above));
}

/// Scans a folder's items before its subfolders. Subfolders of any kind are entered.
void Scanner::scanBranch(MailFolder& folder, const std::string& place) {
    const bool itemsRead = steps_.attempt([&] {
        if (folder.holdsMail())
            scanFolder(folder, place);
    });
    const bool treeRead = steps_.attempt([&] { scanTree(*folder.folders(), place); });
    if (!itemsRead || !treeRead) {
        hasUnread_ = true;
        ledger_.noteUnread(place);
    }
}

/// Leaves out the items of the default folders, but not their subfolders: users file e-mails there
/// to keep them.
void Scanner::scanFolder(MailFolder& folder, const std::string& place) {
    if (isLeftOut(*session_, folder, [this](const Error& error) { steps_.noteFault(error); })) {
        noteLeftOut(folder);
        return;
    }
    steps_.attempt([&] { progress_.folderStarted(folder.name()); });
    const int count = folder.itemCount();
    steps_.attempt([&] { progress_.itemsCounted(count); });
    ledger_.beginFolder(place);
    copies_.beginFolder();
    for (int index = 1; index <= count; ++index) {
        steps_.attempt([&] { progress_.itemStarted(index); });
        scanItem(folder, index);
    }
    if (!ledger_.isUnread(place))
        folder.noteRead();
}

/// An item that is no e-mail counts the e-mail before it once more if that was new. This quirk is
/// kept so that weights stay comparable with those of earlier scans. An item that cannot be read
/// counts nothing, and no e-mail before it: it may be an e-mail, which a later scan counts.
void Scanner::scanItem(MailFolder& folder, int index) {
    std::shared_ptr<MailItem> item;
    bool read = steps_.attempt([&] { item = folder.mailItem(index); });
    if (item || !read) {
        item_ = std::move(item);
        isRecorded_ = false;
        read = read && steps_.attempt([this] { scanMail(); });
    } else if (isRecorded_) {
        steps_.attempt([this] { recorder_.record(*item_); });
    }
    if (!read) {
        hasUnread_ = true;
        ledger_.noteUnread(ledger_.folder());
    }
}

void Scanner::scanMail() {
    const std::string stamp = formatStamp(item_->creationTime());
    const StoreLedger::Age age = ledger_.ageOf(*item_, stamp);
    if (age == StoreLedger::Age::Old)
        return;
    const std::uint64_t print = item_->fingerprint();
    if (age == StoreLedger::Age::CountedAhead) {
        copies_.add(print);
        return;
    }
    if (isLeftOutByLabel(*item_))
        return;
    const bool copy = isCopy(*item_, print);
    isRecorded_ = !copy && recorder_.record(*item_);
    if (copy || isRecorded_) {
        ledger_.noteCounted(*item_, stamp, print);
        copies_.add(print);
    }
}

bool Scanner::isLeftOutByLabel(MailItem& item) {
    const std::optional<DefaultFolder> kind = item.labelledFolder();
    if (!kind)
        return false;
    const std::vector<DefaultFolder> leftOut = session_->leftOutFolders();
    if (std::find(leftOut.begin(), leftOut.end(), *kind) == leftOut.end())
        return false;
    ++outcome_.labelled[*kind];
    return true;
}

/// Different e-mails may have equal fingerprints, so only those with a Message-ID count as copies.
bool Scanner::isCopy(MailItem& item, std::uint64_t print) {
    if (options_.copies || !copies_.isKnown(print) || item.messageId().empty())
        return false;
    ++outcome_.copies;
    return true;
}

void Scanner::noteStore(MailFolder& store, StoreLedger::Store kind) {
    if (kind == StoreLedger::Store::Known)
        return;
    steps_.attempt([&] {
        outcome_.newStores.push_back({store.name(), kind == StoreLedger::Store::Recognised
                                                        ? ledger_.cutOff()
                                                        : std::string()});
    });
}

/// An error here is not reported, as the folder's items are left out anyway.
void Scanner::noteLeftOut(MailFolder& folder) {
    LeftOutFolder leftOut;
    try {
        leftOut.name = folder.name();
        leftOut.mails = folder.itemCount();
    } catch (const Error&) {
        leftOut.mails.reset();
    }
    if (leftOut.mails != 0)
        outcome_.leftOut.push_back(std::move(leftOut));
}

/// The files with the stores' dates and the folders' marks are written just before the database,
/// see `StoreDatesFile`.
ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress, const ScanOptions& options) {
    StoreDatesFile file(storage, platform);
    FolderMarksFile marks(storage, platform);
    LoadedStoreDates loaded = file.load(database);
    const LoadedFolderMarks known = marks.load(database);
    for (const std::optional<std::string>& notice : {loaded.notice, known.notice})
        if (notice)
            progress.noticed(*notice);
    // A scan from another date must also read what has been counted.
    if (options.since.empty())
        session.setMarks(known.marks);
    StoreLedger ledger(std::move(loaded.dates), database.date(), options.since, platform.clock);
    Scanner scanner(database, platform.language, progress, std::move(ledger), options);
    ScanOutcome outcome = scanner.scan(session);
    database.setDate(formatStamp(platform.clock.now()));
    file.hold(std::move(scanner).dates(), database);
    marks.hold(session.marks(), database);
    storage.saveDatabase(database);
    return outcome;
}

}  // namespace pelk
