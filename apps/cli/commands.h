#pragma once
// The commands of the command line.

#include <cstddef>
#include <string_view>

#include "apps/cli/arguments.h"

namespace pelk {

class CommandRun;

struct Command {
    const char* name;
    std::size_t fewestOperands;
    std::size_t mostOperands;
    /// A description of the operands.
    const char* operands;
    void (*run)(CommandRun&);
};

/// Returns the command of that name, or null.
const Command* findCommand(std::string_view name);

/// Runs the command and prints to standard output. Throws `Error` when it is refused or fails.
void runCommand(const Arguments& arguments);

/// Scans the mail, then prints the outcome and the strongest relations. Takes the place of the mail
/// window on a machine without a display. Throws `Error`.
void runWithoutDisplay(const Arguments& arguments);

}  // namespace pelk
