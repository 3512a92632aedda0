#pragma once
// Counts e-mails into a history during a scan.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "db/database.h"
#include "history/history.h"
#include "scan/mail_people.h"
#include "scan/tally.h"

namespace pelk {

/// Returns the day of an e-mail: that of its Date field, unless that is before 1990, or more than a
/// day after its creation. Then senders' clocks are wrong, and the creation has to do.
Day dayOfMail(const std::optional<LocalTime>& sent, const LocalTime& created);

class HistoryRecorder {
 public:
    /// `database` outlives the recorder.
    HistoryRecorder(const Database& database, StoreLedger ledger)
        : tally(std::move(ledger), false), database_(database) {}

    /// Notes whether the e-mails that follow are in a folder for sent mail.
    void beginFolder(MailFolder& folder);
    /// Counts an e-mail between its sender and each recipient, and notes what its header says of
    /// them, if contacts own their addresses.
    void record(MailItem& item, const MailPeople& people, const LocalTime& created);

    /// Notes the addresses of the user's accounts that contacts own by now.
    void noteAccounts(MailSession& session, const Language& language);

    /// What this scan counts, and what has been counted already.
    History counted;
    Tally tally;

 private:
    std::vector<std::size_t> recipientsOf(const MailPeople& people);
    std::optional<std::size_t> numberIfOwned(const std::string& address);

    const Database& database_;
    bool inSentMail_ = false;
};

}  // namespace pelk
