#pragma once
// Writes whole files so that a failure never leaves half of one.

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace pelk {

struct FileToWrite {
    std::string path;
    /// Writes the content.
    std::function<void(WritableFile&)> fill;
};

/// A file with its whole content.
struct FileContent {
    std::string path;
    std::string content;
};

/// The new content of a file, under a temporary name beside the old one. It is removed unless it
/// replaces that.
class FreshFile {
 public:
    /// Writes the content and flushes it to the disk. Throws what `fill` throws, and `Error`. The
    /// file system outlives this object.
    FreshFile(FileSystem& files, const FileToWrite& content);
    FreshFile(FreshFile&& other) noexcept;
    FreshFile& operator=(FreshFile&&) = delete;
    ~FreshFile();

    /// Replaces the old file. Throws `Error`, with that unchanged. Requires: called once.
    void replaceTarget();

 private:
    void remove() noexcept;

    FileSystem& files_;
    std::string target_;
    TemporaryFile fresh_;
    bool waits_ = true;
};

/// Writes all files before it replaces the first old one. When it throws, all old files are as they
/// were, unless replacing one fails after another has been replaced.
void writeWholeFiles(FileSystem& files, const std::vector<FileToWrite>& contents);
void writeWholeFiles(FileSystem& files, const std::vector<FileContent>& contents);

}  // namespace pelk
