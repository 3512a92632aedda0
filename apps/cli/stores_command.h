#pragma once
// The command that lists the mail on this computer.

#include "apps/cli/command_run.h"

namespace pelk {

/// Lists the mail of all mail programs of the user, with its extent.
void storesCommand(CommandRun& run);

}  // namespace pelk
