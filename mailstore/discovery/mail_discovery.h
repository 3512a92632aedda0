#pragma once
// The mail of all mail programs on this computer, and how much of it there is. Nothing is changed,
// created or locked.

#include <cstdint>
#include <functional>

#include "mailstore/discovery/found_mail.h"
#include "mailstore/discovery/user_places.h"
#include "mailstore/folder_purposes.h"

namespace pelk {

/// Returns the mail of all mail programs of a user, program after program. Paths that lead to the
/// same place occur once; absent ones do not occur. Fast because it reads no mail. Does not throw
/// an `Error`. Any thread may call it.
MailList findMail(const UserPlaces& places);

/// Returns the default folders that the settings of mail programs name, for
/// `MailStoreOptions::purposes`. Leaves out what is not there or cannot be read.
FolderPurposes purposesIn(const MailList& list);

/// Returns the user's own addresses that these settings name, for `MailStoreOptions::ownAddresses`.
std::vector<std::string> ownAddressesIn(const MailList& list);

struct MailExtent {
    /// Why none of the mail can be read; empty if it can.
    std::string fault;
    /// The number of folders that can hold messages.
    std::size_t folders = 0;
    std::uint64_t bytes = 0;
    /// The time of the last change of the newest file, in seconds since 1970; 0 if unknown. Usually
    /// the newest message came then.
    std::int64_t changed = 0;
    /// The number of unreadable folders, and the error of the first.
    std::size_t unreadable = 0;
    std::string firstUnreadable;
    /// Whether the entry is a guess without mail, which is hidden.
    bool isNothing = false;
};

/// Walks through all folders of `mail` and returns their extent. May take long for large ones;
/// stops early, with what has been counted by then, once `isCancelled` returns true. Does not throw
/// an `Error`. Any thread may call it.
MailExtent measureMail(const FoundMail& mail, const std::function<bool()>& isCancelled);

}  // namespace pelk
