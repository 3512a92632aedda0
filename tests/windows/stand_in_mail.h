#pragma once
// The mail of the stand-in mail client, served as automation objects.

#include <map>

#include "platform/windows/com.h"
#include "tests/support/memory_mail.h"

namespace pelk {

/// A year of creation that stands for "no date".
inline constexpr LocalTime kNoDate{4501, 1, 1, 0, 0, 0};

struct StandInMail {
    /// The top-level folders. Those inside the first that are called "Outbox" and "Deleted Items"
    /// are the default folders of that kind. A folder's items or subfolders can refuse to be read;
    /// a person without an address or a name raises when it is asked for. The place of a top-level
    /// folder is the id of its store.
    std::vector<MemoryFolder> stores;
    /// The internet addresses behind directory entries.
    std::map<std::string, std::string> directory;
    /// Which of the two ways to look them up works.
    bool directoryKnowsProperty = true;
    /// The user or the policy refuses access to people.
    bool refusesPeople = false;

    /// E-mails and replies that are held from outside, and the most that there ever were.
    int openItems = 0;
    int mostOpenItems = 0;
};

/// The name space that `GetNamespace("MAPI")` gives. `mail` outlives it.
ComPtr<IDispatch> serveMail(StandInMail& mail);

}  // namespace pelk
