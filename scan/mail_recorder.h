#pragma once
// Records an e-mail in the database: its people, and who wrote to whom.

#include <optional>

#include "db/database.h"
#include "platform/language.h"
#include "platform/mail_client.h"
#include "scan/steps.h"

namespace pelk {

class MailRecorder {
 public:
    /// All of these outlive the recorder.
    MailRecorder(Database& database, const Language& language, Steps& steps, ScanOutcome& outcome)
        : database_(database), language_(language), steps_(steps), outcome_(outcome) {}

    /// Counts the e-mail, and one for its sender with each of its recipients. Returns false, with
    /// nothing recorded, when it has no sender. Throws `Error`, with nothing recorded, when the
    /// sender cannot be read.
    bool record(MailItem& item);

 private:
    std::optional<MailPerson> senderOf(MailItem& item);
    int findOrAddContact(const MailPerson& person);

    Database& database_;
    const Language& language_;
    Steps& steps_;
    ScanOutcome& outcome_;
};

}  // namespace pelk
