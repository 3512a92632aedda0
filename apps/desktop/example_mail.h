#pragma once
// The mail of made-up people, to look around in without mail of one's own.

#include <string>

namespace pelk {

/// Returns the path of the example mail, as it is installed or in the source tree of the program.
/// Empty if it is in neither place.
std::string exampleMail();

/// Starts the program once more on the mail `mail`, with its database in `dataFolder`: the people
/// in the example do not belong among the user's contacts. Throws `Error` if it does not start.
void showExampleMail(const std::string& mail, const std::string& dataFolder);

}  // namespace pelk
