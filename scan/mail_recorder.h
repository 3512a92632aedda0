#pragma once
// Records an e-mail in the database: its people, and the relations between sender and recipients.

#include "db/database.h"
#include "scan/mail_people.h"
#include "scan/steps.h"

namespace pelk {

class MailRecorder {
 public:
    /// The references outlive the recorder.
    MailRecorder(Database& database, Steps& steps, ScanOutcome& outcome)
        : database_(database), steps_(steps), outcome_(outcome) {}

    /// Counts the e-mail, and adds 1 to the relation of its sender with each of its recipients.
    void record(const MailPeople& people);

 private:
    int findOrAddContact(const MailPerson& person);

    Database& database_;
    Steps& steps_;
    ScanOutcome& outcome_;
};

}  // namespace pelk
