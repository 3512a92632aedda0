#pragma once
// The mail of the stand-in mail client, served as automation objects.

#include <map>

#include "platform/windows/com.h"
#include "tests/support/memory_mail.h"

namespace pelk {

/// A creation year that means "no date".
inline constexpr LocalTime kNoDate{4501, 1, 1, 0, 0, 0};

struct StandInMail {
    /// The top-level folders. The folders "Outbox", "Deleted Items" and "Sent Items" inside the
    /// first are the default folders of that kind. A folder can refuse to list its items or
    /// subfolders; reading a person without an address or a name raises an exception. The place of
    /// a top-level folder is the id of its store.
    std::vector<MemoryFolder> stores;
    /// The internet addresses of directory entries.
    std::map<std::string, std::string> directory;
    /// The addresses of the user's accounts.
    std::vector<std::string> accounts;
    /// Which of the two ways to look them up works.
    bool directoryKnowsProperty = true;
    /// The user or a policy refuses access to people.
    bool refusesPeople = false;

    /// The number of e-mails and replies held from outside, and its maximum.
    int openItems = 0;
    int mostOpenItems = 0;
};

/// Returns the namespace that `GetNamespace("MAPI")` gives. `mail` must outlive it.
ComPtr<IDispatch> serveMail(StandInMail& mail);

}  // namespace pelk
