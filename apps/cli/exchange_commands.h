#pragma once
// The commands that export, import or delete the whole database. Those that change it print what
// they did after saving.

#include "apps/cli/command_run.h"

namespace pelk {

void dumpCommand(CommandRun& run);
void loadCommand(CommandRun& run);
void exportCommand(CommandRun& run);
/// Asks on the terminal unless the arguments answer. Without a terminal the answer is no.
void importCommand(CommandRun& run);
/// Throws `Error` without `--yes`.
void deleteDatabaseCommand(CommandRun& run);

}  // namespace pelk
