#pragma once
// Runs a scan without a window.

#include <memory>
#include <string>

#include "db/database.h"
#include "scan/scanner.h"

namespace pelk {

std::unique_ptr<Database> makeEmptyDatabase();

/// Scans an mbox or Maildir. Exits when a message cannot be read.
ScanOutcome scanMail(Database& database, const std::string& path);

}  // namespace pelk
