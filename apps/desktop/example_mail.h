#pragma once
// The example mail, whose people are fictitious.

#include <string>

namespace pelk {

/// Returns the path of the example mail, as it is installed or in the source tree of the program.
/// Empty if it is in neither place.
std::string exampleMail();

/// Starts a second process of the program on `mail`, with its database in `dataFolder`, because the
/// people in the example do not belong among the user's contacts. Throws `Error` if it does not
/// start.
void showExampleMail(const std::string& mail, const std::string& dataFolder);

}  // namespace pelk
