#pragma once
// The commands about time: when e-mails were exchanged, and who was lost sight of.

namespace pelk {

class CommandRun;

/// Prints the e-mails between two contacts, or of one contact with all others, for each year or
/// month. Throws `Error`.
void historyCommand(CommandRun& run);

/// Prints the contacts with whom the user, or a chosen contact, has exchanged no e-mail for some
/// months. Throws `Error`.
void coldCommand(CommandRun& run);

}  // namespace pelk
