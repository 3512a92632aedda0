#pragma once
// The program with windows.

#include "apps/cli/arguments.h"

namespace pelk {

/// Opens the mail window and returns when the user has closed it. Throws `Error`, after showing it,
/// when the mail or the database cannot be opened.
void runDesktopProgram(const Arguments& arguments, int argc, char** argv);

}  // namespace pelk
