#pragma once
// The commands that change contacts and thresholds. Each prints what it did after saving. When it
// refuses an operand with an `Error`, it has changed nothing.

#include "apps/cli/command_run.h"

namespace pelk {

void renameCommand(CommandRun& run);
void deleteCommand(CommandRun& run);
/// Without `--yes` it only prints which contacts it would delete.
void deleteDomainCommand(CommandRun& run);
void mergeCommand(CommandRun& run);
/// Sets the thresholds if both are given, and prints them. Throws `UsageError` when only one is
/// given.
void thresholdsCommand(CommandRun& run);

}  // namespace pelk
