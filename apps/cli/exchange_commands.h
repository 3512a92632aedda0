#pragma once
// The commands on the database as a whole: in and out, and away. Each that changes it prints what
// it did once that is saved.

#include "apps/cli/command_run.h"

namespace pelk {

void dumpCommand(CommandRun& run);
void loadCommand(CommandRun& run);
void exportCommand(CommandRun& run);
/// Asks its questions on the terminal, unless the arguments answer them. Without a terminal they
/// are declined.
void importCommand(CommandRun& run);
/// Throws `Error` without `--yes`.
void deleteDatabaseCommand(CommandRun& run);

}  // namespace pelk
