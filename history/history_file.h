#pragma once
// The history on disk, `pelk-history.db`, see docs/database-format.md.
//
// It is read at the first use. `Storage` saves it together with the database: the history of
// deleted contacts goes with them, and comes back when the user undoes that.
//
// Not thread-safe: all calls on the thread that owns the database.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "db/companion.h"
#include "db/storage.h"
#include "history/history_document.h"
#include "history/own_addresses.h"

namespace pelk {

class HistoryFile : private Companion {
 public:
    /// The references outlive this object, which follows the saves of `storage` from now on. It
    /// outlives the database's steps.
    HistoryFile(Storage& storage, const Platform& platform);
    HistoryFile(const HistoryFile&) = delete;
    HistoryFile& operator=(const HistoryFile&) = delete;
    ~HistoryFile() override;

    /// Returns the history; an empty one when there is no file. A damaged one counts as empty and
    /// is replaced at the next save; it is kept under another name then. Throws `Error` when the
    /// file cannot be read: that is no proof that there is none.
    const History& history() { return content().history; }
    /// Returns the message for the user when the file is damaged; nothing otherwise.
    std::optional<std::string> notice();

    /// Returns the user's own addresses: those that the user has set, otherwise those that
    /// `findOwnAddresses` finds.
    std::vector<std::string> ownAddresses();
    /// Returns them with how they are known.
    std::vector<OwnAddress> explainedOwnAddresses();
    /// Sets the user's own addresses; none lets them be found again. Saves the file.
    void setOwnAddresses(const std::vector<std::string>& addresses);

    /// Return what the scans have counted into the history: the dates of the mail stores, and the
    /// stamp of the end of the last scan.
    const StoreDates& stores() { return content().stores; }
    const std::string& date() { return content().date; }
    /// Adds what a scan has counted, which is saved with the next save of the database.
    void addScan(History&& counted, StoreDates stores, const std::string& date);

    /// Writes the history to a file of the user's choice; removes that file when the history is
    /// empty. Throws `Error`.
    void exportTo(const std::string& path);
    /// Returns the history in an exported file; nothing when there is no such file. Throws
    /// `DamagedData`, or `Error` when the file cannot be read.
    std::optional<History> readExported(const std::string& path);
    /// Adds another history, as part of the database's current step. Leaves out addresses that no
    /// contact owns.
    void addInStep(Database& database, History&& other);

 private:
    HistoryContent& content();
    HistoryContent read(std::string text) const;
    void setDamagedAside();
    void changeInStep(Database& database, const std::shared_ptr<HistoryChange>& change);
    void forgetUnowned(Database& database);
    void swapContent(Database& database, HistoryContent&& other);

    void followLosses(Database& database) override;
    void restore(Database& database, std::optional<std::string> text) override;
    void prepareSave() override;

    Storage& storage_;
    MakeXmlDocument makeDocument_;
    std::optional<HistoryContent> content_;
    std::optional<std::string> notice_;
    /// Whether `Storage` does not have the latest content yet.
    bool isChanged_ = false;
    std::uint64_t losses_ = 0;
};

}  // namespace pelk
