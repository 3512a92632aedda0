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
      tally_(std::move(ledger), options.copies),
      people_(language, steps_),
      recorder_(database, steps_, outcome_) {}

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
    const auto sample = [this, &store] { return takeSample(*session_, store); };
    noteStore(store, tally_.beginStore(place, sample, clockTolerance));
    if (history_ != nullptr)
        history_->tally.beginStore(place, sample, clockTolerance);
    scanBranch(store, place);
    if (!tally_.ledger().endStore())
        unreadCountsLater_ = false;
    if (history_ != nullptr)
        history_->tally.ledger().endStore();
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
    if (!itemsRead || !treeRead)
        noteUnread(place);
}

void Scanner::noteUnread(const std::string& place) {
    hasUnread_ = true;
    forEachTally([&place](Tally& tally) { tally.ledger().noteUnread(place); });
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
    forEachTally([&place](Tally& tally) { tally.beginFolder(place); });
    if (history_ != nullptr)
        history_->beginFolder(folder);
    for (int index = 1; index <= count; ++index) {
        steps_.attempt([&] { progress_.itemStarted(index); });
        scanItem(folder, index);
    }
    if (!tally_.ledger().isUnread(place))
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
        steps_.attempt([this] { recordMail(people_.read(*item_)); });
    }
    if (!read)
        noteUnread(std::string(tally_.ledger().folder()));
}

void Scanner::scanMail() {
    const LocalTime created = item_->creationTime();
    const std::string stamp = formatStamp(created);
    const bool isNew = tally_.isNew(*item_, stamp);
    const bool isNewToHistory = history_ != nullptr && history_->tally.isNew(*item_, stamp);
    if ((!isNew && !isNewToHistory) || isLeftOutByLabel(*item_, isNew))
        return;
    const std::uint64_t print = item_->fingerprint();
    std::optional<std::optional<MailPeople>> people;
    const auto readPeople = [&]() -> const std::optional<MailPeople>& {
        return people ? *people : people.emplace(people_.read(*item_));
    };
    if (isNew)
        noteResult(tally_.count(*item_, stamp, print, [&] { return recordMail(readPeople()); }));
    if (isNewToHistory)
        history_->tally.count(*item_, stamp, print,
                              [&] { return recordInHistory(readPeople(), created); });
}

void Scanner::noteResult(Tally::Result result) {
    isRecorded_ = result == Tally::Result::Recorded;
    outcome_.copies += result == Tally::Result::Copy ? 1 : 0;
}

/// Records nothing and returns false when the e-mail has no sender.
bool Scanner::recordMail(const std::optional<MailPeople>& people) {
    if (people)
        recorder_.record(*people);
    return people.has_value();
}

/// Contacts of the e-mail are in the database by now, if it is new there.
bool Scanner::recordInHistory(const std::optional<MailPeople>& people, const LocalTime& created) {
    if (people)
        history_->record(*item_, *people, created);
    return people.has_value();
}

bool Scanner::isLeftOutByLabel(MailItem& item, bool isNew) {
    const std::optional<DefaultFolder> kind = item.labelledFolder();
    if (!kind)
        return false;
    const std::vector<DefaultFolder> leftOut = session_->leftOutFolders();
    if (std::find(leftOut.begin(), leftOut.end(), *kind) == leftOut.end())
        return false;
    if (isNew)
        ++outcome_.labelled[*kind];
    return true;
}

void Scanner::noteStore(MailFolder& store, StoreLedger::Store kind) {
    if (kind == StoreLedger::Store::Known)
        return;
    steps_.attempt([&] {
        outcome_.newStores.push_back({store.name(), kind == StoreLedger::Store::Recognised
                                                        ? tally_.ledger().cutOff()
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

namespace {

/// What the last scan has left for this one.
struct Beside {
    StoreDatesFile dates;
    FolderMarksFile marks;
    HistoryFile* history;
};

/// Loads the dates of the stores, gives the session its marks, and passes on what the user is to be
/// told. Marks only help if both counts have seen what they cover, and a scan from another date
/// must also read what has been counted.
StoreDates prepareScan(Beside& beside, const Database& database, MailSession& session,
                       ScanProgress& progress, bool fromOtherDate) {
    LoadedStoreDates loaded = beside.dates.load(database);
    const LoadedFolderMarks known = beside.marks.load(database);
    const auto historyNotice = beside.history != nullptr ? beside.history->notice() : std::nullopt;
    for (const std::optional<std::string>& notice : {loaded.notice, known.notice, historyNotice})
        if (notice)
            progress.noticed(*notice);
    const bool historyHasSeen =
        beside.history == nullptr || beside.history->date() >= database.date();
    if (!fromOtherDate && historyHasSeen)
        session.setMarks(known.marks);
    return std::move(loaded.dates);
}

}  // namespace

/// The files with the stores' dates and the folders' marks are written just before the database,
/// see `StoreDatesFile`.
ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress, const ScanOptions& options,
                        HistoryFile* history) {
    Beside beside{{storage, platform}, {storage, platform}, history};
    StoreDates dates = prepareScan(beside, database, session, progress, !options.since.empty());
    StoreLedger ledger(std::move(dates), database.date(), options.since, platform.clock);
    Scanner scanner(database, platform.language, progress, std::move(ledger), options);
    std::optional<HistoryRecorder> recorder;
    if (history != nullptr)
        scanner.countInto(recorder.emplace(
            database, StoreLedger(history->stores(), history->date(), {}, platform.clock)));
    ScanOutcome outcome = scanner.scan(session);
    const std::string ended = formatStamp(platform.clock.now());
    database.setDate(ended);
    if (recorder) {
        recorder->noteAccounts(session, platform.language);
        history->addScan(std::move(recorder->counted),
                         std::move(recorder->tally).finish(scanner.reachedAllStores()), ended);
    }
    beside.dates.hold(std::move(scanner).dates(), database);
    beside.marks.hold(session.marks(), database);
    storage.saveDatabase(database);
    return outcome;
}

}  // namespace pelk
