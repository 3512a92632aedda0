#pragma once
// The commands of the command line.

#include "apps/cli/arguments.h"

namespace pelk {

/// Runs a command other than the mail window, printing to standard output. Throws `Error` when it
/// is refused or fails.
void runCommand(const Arguments& arguments);

/// Scans the mail, and prints the outcome and the strongest relations: what is left of the mail
/// window on a machine without a display. Throws `Error`.
void runWithoutDisplay(const Arguments& arguments);

}  // namespace pelk
