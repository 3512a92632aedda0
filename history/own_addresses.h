#pragma once
// Finds the user's own addresses.

#include <string>
#include <vector>

#include "history/history.h"

namespace pelk {

/// An address of the user, and how that is known, as text for the user.
struct OwnAddress {
    std::string address;
    std::string reason;

    friend bool operator==(const OwnAddress&, const OwnAddress&) = default;
};

/// Returns the addresses of the user's accounts and those that send what is in folders for sent
/// mail, the most frequent sender first. Without any, returns the person with the most e-mails,
/// because a mailbox holds those of its owner. Returns nothing for a history without e-mails.
/// Mailing lists and robots are left out.
std::vector<OwnAddress> findOwnAddresses(const History& history);

}  // namespace pelk
