#pragma once
// Walks the mailbox and counts the e-mails between people.
//
// Not thread-safe: a scan makes all its calls on the thread that started it.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "db/database.h"
#include "db/storage.h"
#include "history/history_file.h"
#include "platform/mail_client.h"
#include "scan/history_recorder.h"
#include "scan/mail_recorder.h"
#include "scan/scan_options.h"
#include "scan/scan_outcome.h"
#include "scan/steps.h"
#include "scan/tally.h"

namespace pelk {

/// Receives the progress of a scan. An `Error` thrown from a call counts as a read error; any other
/// exception ends the scan.
class ScanProgress {
 public:
    virtual ~ScanProgress() = default;
    /// Before the scan, with what the user is to be told of it, if anything.
    virtual void noticed(const std::string& notice) = 0;
    virtual void folderStarted(const std::string& name) = 0;
    /// Called before the first item of a folder, with the number of its items.
    virtual void itemsCounted(int count) = 0;
    /// Called before item `index`, counted from 1.
    virtual void itemStarted(int index) = 0;
};

class Scanner {
 public:
    /// Records every e-mail created after the database's current date.
    Scanner(Database& database, const Language& language, ScanProgress& progress);
    /// Records every e-mail that is new according to the ledger.
    Scanner(Database& database, const Language& language, ScanProgress& progress,
            StoreLedger ledger, const ScanOptions& options);

    /// Lets the scan also count into a history, which outlives it. What is new to the history need
    /// not be new to the database. Called before the scan.
    void countInto(HistoryRecorder& history) { history_ = &history; }

    /// Walks all mail folders of the session and leaves out the items of its default folders. An
    /// error of the mail system ends only the step in which it occurs. Requires: called once.
    ScanOutcome scan(MailSession& session);

    /// Returns the dates of the stores after the scan.
    StoreDates dates() && { return std::move(tally_).finish(reachedAllStores_); }
    /// Returns whether the scan has reached all stores.
    bool reachedAllStores() const { return reachedAllStores_; }

 private:
    std::string placeOf(MailFolder& folder, const std::string& above);
    void scanStores();
    void scanStore(MailFolder& store);
    void scanTree(MailFolders& folders, const std::string& above);
    void scanBranch(MailFolder& folder, const std::string& place);
    void scanFolder(MailFolder& folder, const std::string& place);
    void scanItem(MailFolder& folder, int index);
    void scanMail();
    bool isLeftOutByLabel(MailItem& item, bool isNew);
    bool recordMail(const std::optional<MailPeople>& people);
    bool recordInHistory(const std::optional<MailPeople>& people, const LocalTime& created);
    void noteResult(Tally::Result result);
    void noteUnread(const std::string& place);
    template <typename Act>
    void forEachTally(const Act& act) {
        act(tally_);
        if (history_ != nullptr)
            act(history_->tally);
    }
    void noteStore(MailFolder& store, StoreLedger::Store kind);
    void noteLeftOut(MailFolder& folder);

    Database& database_;
    ScanProgress& progress_;
    Tally tally_;
    HistoryRecorder* history_ = nullptr;
    ScanOutcome outcome_;
    Steps steps_{outcome_};
    MailPeopleReader people_;
    MailRecorder recorder_;
    MailSession* session_ = nullptr;
    bool reachedAllStores_ = false;
    bool hasUnread_ = false;
    bool unreadCountsLater_ = true;
    /// The last e-mail of the walk, see `scanItem`, and whether it was recorded.
    std::shared_ptr<MailItem> item_;
    bool isRecorded_ = false;
};

/// Scans the mailbox, sets the database's date to the current time, and saves the database together
/// with the dates of the mail stores. Throws `Error` when saving fails: the counts are then in
/// memory only, and no later scan by this process counts them again. Counts into the history, too,
/// unless that is null: everything that is new to it, whatever `options` says.
ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress,
                        const ScanOptions& options = {}, HistoryFile* history = nullptr);

}  // namespace pelk
