#pragma once
// Walks the mailbox and counts who writes to whom.

#include <memory>
#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "platform/mail_client.h"

namespace pelk {

/// Watches a scan. What it throws ends the scan.
class ScanProgress {
 public:
    virtual ~ScanProgress() = default;
    virtual void folderStarted(const std::string& name) = 0;
    /// Before the first item, with the number of items to come.
    virtual void itemsCounted(int count) = 0;
    /// Before item `index`, counted from 1.
    virtual void itemStarted(int index) = 0;
};

struct ScanOutcome {
    /// What the database gained.
    int mails = 0;
    std::size_t contacts = 0;
    std::size_t relations = 0;
    /// Some people could not be added because the database holds no more contacts.
    bool databaseFull = false;
    /// Steps that were abandoned because the mail could not be read, and why the first of them was.
    int faults = 0;
    std::string firstFault;
};

/// What the user is told, once, after a scan that filled the database.
extern const char* const kDatabaseFullMessage;

class Scanner {
 public:
    /// Records every e-mail created after the database's date as it stands now.
    Scanner(Database& database, const Language& language, ScanProgress& progress);

    /// Walks all mail folders of the session, except the outbox and the deleted items themselves.
    /// A fault of the mail system abandons only the step in which it arose.
    ScanOutcome scan(MailSession& session);

 private:
    template <typename Step>
    void attempt(const Step& step);

    void scanTree(std::unique_ptr<MailFolders> folders);
    void scanFolder(MailFolder& folder);
    void scanItem(MailFolder& folder, int index);
    void recordMail(MailItem& item);
    int findOrAddContact(const MailPerson& person);

    Database& database_;
    const Language& language_;
    ScanProgress& progress_;
    const std::string cutOff_;
    MailSession* session_ = nullptr;
    /// The last e-mail that was reached, see `scanItem`.
    std::shared_ptr<MailItem> item_;
    ScanOutcome outcome_;
};

/// Scans the mailbox, stamps the database with the present moment, and saves it. Throws `Error`
/// when saving fails; what was counted then stands in the database, but not on the disk.
ScanOutcome scanAndSave(Database& database, Storage& storage, const Platform& platform,
                        MailSession& session, ScanProgress& progress);

}  // namespace pelk
