#pragma once
// The commands that write pictures of the community, and the network for other programs. They
// replace the file only once it is written in full.

#include "apps/cli/command_run.h"

namespace pelk {

/// Both throw `UsageError` for a missing or unknown file ending and for options that make no sense.
void pictureCommand(CommandRun& run);
void graphCommand(CommandRun& run);

}  // namespace pelk
