#pragma once
// The program with windows.

#include "apps/cli/arguments.h"

namespace pelk {

/// Opens the mail window on the mail that the arguments name, else on the mail that was opened
/// last, else on a list of the mail on this computer. Returns when the user has closed it. Throws
/// `Error`, after showing it, when the mail or the database cannot be opened.
void runDesktopProgram(const Arguments& arguments, int argc, char** argv);

}  // namespace pelk
