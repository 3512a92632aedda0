#pragma once
// Walks the mailbox and counts who writes to whom.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "db/database.h"
#include "db/storage.h"
#include "platform/mail_client.h"
#include "scan/copy_filter.h"
#include "scan/mail_recorder.h"
#include "scan/scan_options.h"
#include "scan/scan_outcome.h"
#include "scan/steps.h"
#include "scan/store_ledger.h"

namespace pelk {

/// Watches a scan. An `Error` that it throws counts as a fault of the mail, and anything else ends
/// the scan.
class ScanProgress {
 public:
    virtual ~ScanProgress() = default;
    virtual void folderStarted(const std::string& name) = 0;
    /// Before the first item, with the number of items to come.
    virtual void itemsCounted(int count) = 0;
    /// Before item `index`, counted from 1.
    virtual void itemStarted(int index) = 0;
};

class Scanner {
 public:
    /// Records every e-mail created after the database's date as it stands now.
    Scanner(Database& database, const Language& language, ScanProgress& progress);
    /// Records what is new by the ledger.
    Scanner(Database& database, const Language& language, ScanProgress& progress,
            StoreLedger ledger, const ScanOptions& options);

    /// Walks all mail folders of the session, except those that it leaves out by themselves. A
    /// fault of the mail system abandons only the step in which it arose. To be called once.
    ScanOutcome scan(MailSession& session);

    /// The dates of the stores after the scan.
    StoreDates dates() && { return std::move(ledger_).finish(metAllStores_); }

 private:
    std::string placeOf(MailFolder& folder, const std::string& above);
    void scanStores();
    void scanStore(MailFolder& store);
    void scanTree(MailFolders& folders, const std::string& above);
    void scanBranch(MailFolder& folder, const std::string& place);
    void scanFolder(MailFolder& folder, const std::string& place);
    void scanItem(MailFolder& folder, int index);
    void scanMail();
    bool isLabelledOut(MailItem& item);
    bool isCopy(MailItem& item, std::uint64_t print);
    void noteStore(MailFolder& store, StoreLedger::Store kind);
    void noteLeftOut(MailFolder& folder);

    Database& database_;
    ScanProgress& progress_;
    const ScanOptions options_;
    StoreLedger ledger_;
    CopyFilter copies_;
    ScanOutcome outcome_;
    Steps steps_{outcome_};
    MailRecorder recorder_;
    MailSession* session_ = nullptr;
    bool metAllStores_ = false;
    bool metUnread_ = false;
    bool tellsUnread_ = true;
    /// The last e-mail that was reached, see `scanItem`, and whether it was recorded.
    std::shared_ptr<MailItem> item_;
    bool isRecorded_ = false;
};

/// Scans the mailbox, stamps the database with the present moment, and saves it together with the
/// dates of the mail stores. Throws `Error` when saving fails; what was counted then stands in the
/// database, but not on the disk, and no later scan counts it again.
ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress,
                        const ScanOptions& options = {});

}  // namespace pelk
