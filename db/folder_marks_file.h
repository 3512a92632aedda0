#pragma once
// The marks of folders on mail servers (`FolderMark`) on disk, see docs/database-format.md.
//
// A mark says that e-mails have been counted, so it is valid only for the state of the database
// that includes them. The file is written before the database. After a crash in between, or if the
// user restores another database, the marks are invalid and a scan reads all e-mails.

#include <optional>
#include <string>
#include <vector>

#include "db/storage.h"
#include "platform/mail_client.h"

namespace pelk {

struct LoadedFolderMarks {
    std::vector<FolderMark> marks;
    /// The message for the user when the file is damaged: it says what a scan reads now.
    std::optional<std::string> notice;
};

class FolderMarksFile {
 public:
    FolderMarksFile(Storage& storage, const Platform& platform)
        : storage_(storage), platform_(platform) {}

    /// Returns the marks for the current state of the database; none if the file is missing or
    /// damaged. Throws `Error` when it cannot be read.
    LoadedFolderMarks load(const Database& database);

    /// Writes the marks, for the current state of the database, just before its next save. Without
    /// any marks, keeps the loaded ones.
    void hold(const std::vector<FolderMark>& marks, const Database& database);

 private:
    void read(std::string content, const Database& database);

    Storage& storage_;
    Platform platform_;
    std::vector<FolderMark> loaded_;
    /// Whether the file exists and therefore must be updated with the database.
    bool isThere_ = false;
};

}  // namespace pelk
