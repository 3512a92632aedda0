#pragma once
// The commands that change contacts and thresholds. Each prints what it did once that is saved,
// and changes nothing when one of its operands is refused with an `Error`.

#include "apps/cli/command_run.h"

namespace pelk {

void renameCommand(CommandRun& run);
void deleteCommand(CommandRun& run);
/// Without `--yes` it only prints whom it would delete.
void deleteDomainCommand(CommandRun& run);
void mergeCommand(CommandRun& run);
/// Sets the thresholds when it is given two, and prints them. Throws `UsageError` when it is given
/// one.
void thresholdsCommand(CommandRun& run);

}  // namespace pelk
