#pragma once
// Files and folders, in steps small enough that each can be made to fail in a test.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace pelk {

/// A file that is being written. Destroying it before `close` leaves whatever was written.
class WritableFile {
 public:
    virtual ~WritableFile() = default;
    /// Appends the bytes. Throws `Error`.
    virtual void write(std::string_view bytes) = 0;
    /// Returns when the bytes written are on the disk itself. Throws `Error`.
    virtual void flushToDisk() = 0;
    /// Closes the file. Throws `Error` when the system reports a late failure.
    virtual void close() = 0;
};

/// A new file that is to take the place of another one.
struct TemporaryFile {
    std::string path;
    std::unique_ptr<WritableFile> file;
};

/// The name of a temporary file: that of its target, this, and as many random digits.
inline constexpr std::string_view kTemporaryMark = ".new-";
inline constexpr std::size_t kTemporaryDigits = 16;

/// Whether a file of that name is one.
inline bool isTemporaryName(std::string_view name) {
    const std::size_t mark = name.rfind(kTemporaryMark);
    return mark != std::string_view::npos && mark > 0 &&
           name.size() - mark == kTemporaryMark.size() + kTemporaryDigits &&
           name.find_first_not_of("0123456789abcdef", mark + kTemporaryMark.size()) ==
               std::string_view::npos;
}

/// The file system. Paths are UTF-8. Every failure is an `Error` that names the path.
class FileSystem {
 public:
    virtual ~FileSystem() = default;

    /// The path of `name` inside `folder`, with the platform's separator.
    virtual std::string join(const std::string& folder, const std::string& name) const = 0;

    /// Whether a folder, or a normal file, stands there. False only when nothing does; where
    /// something else stands (also a link that leads nowhere), or the system does not tell, they
    /// throw `Error`.
    virtual bool folderExists(const std::string& path) = 0;
    virtual bool fileExists(const std::string& path) = 0;
    /// Creates one folder, open to its owner alone; the folder above it must exist.
    virtual void createFolder(const std::string& path) = 0;

    /// The whole content, byte for byte.
    virtual std::string readWholeFile(const std::string& path) = 0;
    /// Creates an empty file in the folder of `target`, for `replaceFile`: readable by its owner
    /// alone, under a name that nobody had and nobody could foretell. Its `Error`s name `target`.
    virtual TemporaryFile createTemporary(const std::string& target) = 0;
    /// Removes from a folder what `createTemporary` made there and a program that was ended left
    /// behind. No other program may be writing there. What cannot be removed stays.
    virtual void removeLeftovers(const std::string& folder) = 0;
    /// Puts `from` in the place of `to`, which may exist, in one step that a crash cannot split.
    /// Both lie in the same folder. Where `to` is a symbolic link that the platform follows, the
    /// file it leads to is replaced. When it throws, nothing has changed.
    virtual void replaceFile(const std::string& from, const std::string& to) = 0;
    virtual void removeFile(const std::string& path) = 0;
};

}  // namespace pelk
