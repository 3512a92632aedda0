#pragma once
// Files and folders, in steps small enough that a test can make each one fail.

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace pelk {

/// A file that is open for writing. Destroying it before `close` keeps what was written so far.
class WritableFile {
 public:
    virtual ~WritableFile() = default;
    /// Appends the bytes. Throws `Error`.
    virtual void write(std::string_view bytes) = 0;
    /// Returns once the written bytes are on the disk. Throws `Error`.
    virtual void flushToDisk() = 0;
    /// Closes the file. Throws `Error` when the system reports a delayed failure.
    virtual void close() = 0;
};

/// A new file that will replace another one.
struct TemporaryFile {
    std::string path;
    std::unique_ptr<WritableFile> file;
};

/// A temporary file is named after its target, followed by this mark and as many random digits.
inline constexpr std::string_view kTemporaryMark = ".new-";
inline constexpr std::size_t kTemporaryDigits = 16;
using TemporaryNumber = std::array<unsigned char, kTemporaryDigits / 2>;

/// Returns the path of a temporary file beside `target` that holds a random number in its name.
inline std::string temporaryName(const std::string& target, const TemporaryNumber& random) {
    std::string name = target + std::string(kTemporaryMark);
    for (const unsigned byte : random)
        for (const unsigned digit : {byte >> 4U, byte & 15U})
            name += "0123456789abcdef"[digit];
    return name;
}

/// Whether the name is that of a temporary file.
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

    /// Returns the path of `name` inside `folder`, with the platform's separator.
    virtual std::string join(const std::string& folder, const std::string& name) const = 0;

    /// Whether the path is a folder, or a regular file. False only if nothing exists there. Throws
    /// `Error` for anything else, such as a dangling link, and when the system does not say.
    virtual bool folderExists(const std::string& path) = 0;
    virtual bool fileExists(const std::string& path) = 0;
    /// Creates one folder with access for its owner only. The parent folder must exist.
    virtual void createFolder(const std::string& path) = 0;

    /// Returns the whole content, byte for byte.
    virtual std::string readWholeFile(const std::string& path) = 0;
    /// Creates an empty file in the folder of `target`, for `replaceFile`: readable by its owner
    /// only, with an unused, unpredictable name. Its `Error`s name `target`.
    virtual TemporaryFile createTemporary(const std::string& target) = 0;
    /// Removes from a folder the temporary files that an interrupted program left. No other program
    /// may be writing there. Files that cannot be removed stay.
    virtual void removeLeftovers(const std::string& folder) = 0;
    /// Atomically replaces `to`, which need not exist, by `from`. Both must be in the same folder.
    /// If `to` is a symbolic link that the platform follows, its target is replaced. When this
    /// throws, nothing has changed.
    virtual void replaceFile(const std::string& from, const std::string& to) = 0;
    virtual void removeFile(const std::string& path) = 0;
};

}  // namespace pelk
