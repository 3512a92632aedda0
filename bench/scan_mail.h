#pragma once
// A scan without a window, for measuring.

#include <memory>
#include <string>

#include "db/database.h"
#include "scan/scanner.h"

namespace pelk {

std::unique_ptr<Database> makeEmptyDatabase();

/// Counts all mail of an mbox or Maildir. Ends the program when a message cannot be read.
ScanOutcome scanMail(Database& database, const std::string& path);

}  // namespace pelk
