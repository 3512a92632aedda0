#pragma once
// What a scan has to say beside its figures, for the form and the command line alike.

#include <string>
#include <vector>

#include "scan/scan_outcome.h"

namespace pelk {

/// A line each: stores that were counted for the first time or known again, what was left out, and
/// copies.
std::vector<std::string> scanNotes(const ScanOutcome& outcome);

/// What the user is told, once, after a scan that filled the database.
std::string databaseFullMessage();

/// Sentences about what went wrong.
std::vector<std::string> scanWarnings(const ScanOutcome& outcome);

/// All of these as the text of one box; empty when there is nothing that the user should know.
/// Copies alone are no reason for a box: whoever has them has them at every scan.
std::string scanMessage(const ScanOutcome& outcome);

/// How a kind of folders is called.
const char* nameOf(DefaultFolder kind);

}  // namespace pelk
