#pragma once
// A file that holds mail, and the position of one message in it.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

/// Throws the `Error` "<path> cannot be read: <reason>." with the reason that `errno` gives.
[[noreturn]] void failReading(const std::string& path);

/// A regular file open for reading. The folder and its messages share it, so a message can be read
/// after its folder object is destroyed. Several threads may read at once; `close` needs exclusive
/// access.
class MailFile {
 public:
    /// Throws an `Error` if `path` cannot be opened or is not a regular file.
    static std::shared_ptr<MailFile> open(const std::string& path);

    /// Returns a file whose `content` is in memory, such as a message of a database. `path` tells
    /// users where it comes from, and `changed` is the time when that was changed last, in seconds
    /// since 1970. It counts as a file that will be changed again.
    static std::shared_ptr<MailFile> inMemory(std::string content, std::string path,
                                              std::int64_t changed);

    /// Returns the path and the times of `original` with the content that `fill` writes to the file
    /// `descriptor`, which the result closes. Throws what `fill` throws, and an `Error` if the
    /// system cannot tell the size.
    static std::shared_ptr<MailFile> unpacked(const MailFile& original, int descriptor,
                                              const std::function<void()>& fill);

    MailFile(const MailFile&) = delete;
    MailFile& operator=(const MailFile&) = delete;
    ~MailFile() { close(); }

    /// Closes the file. `read` must not be called afterwards; the other functions may.
    void close() noexcept;

    const std::string& path() const { return path_; }
    /// The size of the content in bytes at the time the file was opened.
    std::uint64_t size() const { return size_; }
    /// The time of the last change, or the present if that time is in the future. Nothing if the
    /// file system does not store one.
    const std::optional<LocalTime>& changed() const { return changed_; }
    /// Whether the time of the last change is in the future or will be a later one soon.
    bool isAhead() const { return ahead_; }
    /// Reads up to `length` bytes and returns their number, which is smaller only at the end of the
    /// file. Throws an `Error` if the system cannot read.
    std::size_t read(std::uint64_t offset, char* bytes, std::size_t length) const;
    /// Throws an `Error` that says that another program changed the file.
    [[noreturn]] void failChanged() const;

 private:
    MailFile(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}

    void setChanged(std::int64_t seconds);

    /// Negative for a file in memory.
    int descriptor_;
    std::string path_;
    std::string content_;
    std::uint64_t size_ = 0;
    std::optional<LocalTime> changed_;
    bool ahead_ = false;
};

/// The start of the separator line before each message of an mbox (RFC 4155).
inline constexpr std::string_view kFromLine = "From ";

/// The position of a message, in bytes.
struct MessagePlace {
    std::shared_ptr<const MailFile> file;
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    /// Whether the message must begin with `kFromLine`. Messages outside of an mbox may.
    bool inMbox = false;
};

}  // namespace pelk
