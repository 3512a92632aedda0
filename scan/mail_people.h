#pragma once
// The people of an e-mail, as a scan counts them.

#include <optional>
#include <vector>

#include "platform/language.h"
#include "platform/mail_client.h"
#include "scan/steps.h"

namespace pelk {

/// All addresses are in lower case; one that cannot be used is empty.
struct MailPeople {
    MailPerson sender;
    std::vector<MailPerson> recipients;
};

class MailPeopleReader {
 public:
    /// The references outlive the reader.
    MailPeopleReader(const Language& language, Steps& steps) : language_(language), steps_(steps) {}

    /// Returns nothing when the e-mail has no sender. Leaves out recipients that cannot be read.
    /// Throws `Error` when the sender cannot be read.
    std::optional<MailPeople> read(MailItem& item);

 private:
    std::optional<MailPerson> senderOf(MailItem& item);
    MailPerson withCleanAddress(MailPerson person) const;

    const Language& language_;
    Steps& steps_;
};

}  // namespace pelk
