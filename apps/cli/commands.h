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
    /// What it takes, in words.
    const char* operands;
    void (*run)(CommandRun&);
};

/// The command of that name; null when there is none.
const Command* findCommand(std::string_view name);

/// Runs the command that the arguments name, printing to standard output. Throws `Error` when it is
/// refused or fails.
void runCommand(const Arguments& arguments);

/// Scans the mail, and prints the outcome and the strongest relations: what is left of the mail
/// window on a machine without a display. Throws `Error`.
void runWithoutDisplay(const Arguments& arguments);

}  // namespace pelk
