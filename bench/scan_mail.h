#pragma once
// Runs a scan without a window.

#include <memory>
#include <string>

#include "db/database.h"
#include "scan/scanner.h"

namespace pelk {

class NoProgress : public ScanProgress {
 public:
    void noticed(const std::string&) override {}
    void folderStarted(const std::string&) override {}
    void itemsCounted(int) override {}
    void itemStarted(int) override {}
};

std::unique_ptr<Database> makeEmptyDatabase();

/// Counts all mail of an mbox or Maildir, or of a session. Ends the program when a message cannot
/// be read.
ScanOutcome scanMail(Database& database, const std::string& path);
ScanOutcome scanMail(Database& database, MailSession& session);

}  // namespace pelk
