#pragma once
// The commands about lists, robots and the user's own addresses.

#include "apps/cli/command_run.h"
#include "views/hidden_contacts.h"

namespace pelk {

/// Prints the user's own addresses, and how they are known; sets them if the command line names
/// some, or lets Pelk find them again for the word "auto". Throws `UsageError` for anything else
/// that is no address.
void meCommand(CommandRun& run);

/// Prints the addresses that are mailing lists or robots, those with most e-mails first.
void listsCommand(CommandRun& run);

/// Returns the ids of the contacts that `--without-lists` leaves out, and tells their number; none
/// without that option.
HiddenContacts::Ids leftOutContacts(CommandRun& run);

}  // namespace pelk
