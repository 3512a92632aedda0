#pragma once
// Copies an SQLite database that another program may be writing to.

#include <string>

namespace pelk {

/// Returns whether changes wait in a `-wal` or `-journal` file beside the database at `path`.
/// Throws an `Error` if the system cannot tell.
bool hasPendingChanges(const std::string& path);

/// Copies the database at `path` and its pending changes to the new files `copy`, `copy`-wal and
/// `copy`-journal, so that SQLite finds a consistent state there. Takes no lock. Throws an `Error`
/// that names the path if a file cannot be copied, or if the other program gets in the way several
/// times.
///
/// The pending changes are copied after the database. As long as the header of their file stays the
/// same, that file only grows (sqlite.org/fileformat2.html, 3 and 4): a `-wal` still has every
/// change that came into the database meanwhile, and a `-journal` still has what it overwrote.
/// SQLite writes a new header when it starts to reuse the file; then the copy is made again.
void copySqlite(const std::string& path, const std::string& copy);

}  // namespace pelk
