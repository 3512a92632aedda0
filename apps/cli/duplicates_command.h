#pragma once
// The command that suggests contacts to merge.

#include "apps/cli/command_run.h"

namespace pelk {

/// Prints pairs of contacts that are likely one person, one per line, the surest first.
void duplicatesCommand(CommandRun& run);

}  // namespace pelk
