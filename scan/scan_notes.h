#pragma once
// The messages about a scan, apart from its figures, for the form and the command line.

#include <string>
#include <vector>

#include "scan/scan_outcome.h"

namespace pelk {

/// Returns a line for each new or recognised store, for everything left out, and for the number of
/// copies.
std::vector<std::string> scanNotes(const ScanOutcome& outcome);

/// The message after a scan that filled the database.
std::string databaseFullMessage();

/// Returns sentences about everything that went wrong.
std::vector<std::string> scanWarnings(const ScanOutcome& outcome);

/// Returns all of these as the text of one message box; empty when there is nothing to report.
/// Copies alone are not reported: users who have some have them at every scan.
std::string scanMessage(const ScanOutcome& outcome);

/// Returns one line for every scan: what it added and how many folders it left out, or that nothing
/// was new.
std::string scanSummary(const ScanOutcome& outcome);

/// Returns the English name of a kind of folder.
const char* nameOf(DefaultFolder kind);

}  // namespace pelk
