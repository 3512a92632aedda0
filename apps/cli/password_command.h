#pragma once
// The password of a mail server, as a command of the user's prints it.

#include <string>

namespace pelk {

/// Runs the command by /bin/sh, with the terminal for its questions, and returns the first line of
/// what it prints. Throws `Error`, which does not repeat what it printed, when it fails or prints
/// none.
std::string runPasswordCommand(const std::string& command);

}  // namespace pelk
