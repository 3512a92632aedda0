#pragma once
// Tells people from mailing lists and from robots: programs, and newsletters that nobody answers.
//
// A person who writes to a mailing list is a person, although each such e-mail has the fields of
// the list. So an e-mail through a mailing list proves little about its sender, and a few automatic
// e-mails, such as those of a calendar, make nobody a robot.
//
// Addresses are in lower case. All functions are thread-safe.

#include <functional>
#include <set>
#include <span>
#include <string>

#include "db/records.h"
#include "history/history.h"
#include "platform/mail_automation.h"

namespace pelk {

enum class CorrespondentKind { Person, List, Robot };

/// Returns "person", "list" or "robot".
const char* nameOf(CorrespondentKind kind);

using ListHosts = std::set<std::string, std::less<>>;

struct Correspondent {
    CorrespondentKind kind = CorrespondentKind::Person;
    /// Why it is a list or a robot, such as "List-Post in its e-mails"; empty for a person.
    std::string reason;
};

/// Returns the hosts that seem to have only mailing lists: a header names one of them, and of at
/// least ten other addresses none has sent anything.
ListHosts listHostsIn(const History& history);

/// Returns what an address is, by its name, its record, which may be empty, and its host.
Correspondent kindOfAddress(const std::string& address, const AddressRecord& record,
                            const ListHosts& listHosts = {});

/// Returns what a contact is: a list or a robot only if all of its addresses are, with the kind and
/// the reason of the first one.
Correspondent kindOfContact(const Contact& contact, const History& history,
                            const ListHosts& listHosts = {});

/// Adds what the header of an e-mail says of its sender and its recipients, given by their numbers,
/// to their records. A mailing list that the header names is known only if it is one of these.
void noteAutomation(History& history, const MailAutomation& automation,
                    std::optional<std::size_t> sender, std::span<const std::size_t> recipients);

}  // namespace pelk
