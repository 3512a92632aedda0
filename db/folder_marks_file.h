#pragma once
// The marks of folders on mail servers (`FolderMark`) on disk, see docs/database-format.md.
//
// A mark says that e-mails have been counted, so it holds only for the state of the database in
// which they are. The file is written before the database; after a crash between the two, or with a
// database that the user takes back, its marks are of no use, and all e-mails are looked at.

#include <optional>
#include <string>
#include <vector>

#include "db/storage.h"
#include "platform/mail_client.h"

namespace pelk {

struct LoadedFolderMarks {
    std::vector<FolderMark> marks;
    /// What the user is to be told: that the file is damaged, and what a scan reads now.
    std::optional<std::string> notice;
};

class FolderMarksFile {
 public:
    FolderMarksFile(Storage& storage, const Platform& platform)
        : storage_(storage), platform_(platform) {}

    /// The marks that belong to the database as it stands; none without the file, or if it is
    /// damaged. Throws `Error` when it cannot be read.
    LoadedFolderMarks load(const Database& database);

    /// Has the marks saved with the database, as it stands, when that is next saved. Without any,
    /// those that were loaded stay.
    void hold(const std::vector<FolderMark>& marks, const Database& database);

 private:
    void read(std::string content, const Database& database);

    Storage& storage_;
    Platform platform_;
    std::vector<FolderMark> loaded_;
    /// Whether there is a file, which has to follow the database.
    bool isThere_ = false;
};

}  // namespace pelk
