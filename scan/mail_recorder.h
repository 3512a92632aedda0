#pragma once
// Records an e-mail in the database: its people, and the relations between sender and recipients.

#include <optional>

#include "db/database.h"
#include "platform/language.h"
#include "platform/mail_client.h"
#include "scan/steps.h"

namespace pelk {

class MailRecorder {
 public:
    /// The references outlive the recorder.
    MailRecorder(Database& database, const Language& language, Steps& steps, ScanOutcome& outcome)
        : database_(database), language_(language), steps_(steps), outcome_(outcome) {}

    /// Counts the e-mail, and adds 1 to the relation of its sender with each of its recipients.
    /// Records nothing and returns false when it has no sender. Records nothing and throws `Error`
    /// when the sender cannot be read.
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
