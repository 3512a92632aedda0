#pragma once
// Gets the password of a mail server from a command of the user.

#include <string>

namespace pelk {

/// Runs the command by /bin/sh and returns the first line of its output. The command may use the
/// terminal to ask questions, and finds the URL of the account in $PELK_SERVER. Throws `Error` if
/// it fails or its first line is empty; the message does not repeat the output.
std::string runPasswordCommand(const std::string& command, const std::string& url);

}  // namespace pelk
