#pragma once
// A file that holds mail, and the place of one message in it.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

/// Fails with the message "Cannot read <path>: <the system's reason>", the reason being `errno`.
[[noreturn]] void failReading(const std::string& path);

/// A regular file open for reading. Shared by the folder and its messages, so that a message can
/// be read after its folder is gone.
class MailFile {
 public:
    /// Fails with an `Error` when `path` cannot be opened or is no regular file.
    static std::shared_ptr<MailFile> open(const std::string& path);

    MailFile(const MailFile&) = delete;
    MailFile& operator=(const MailFile&) = delete;
    ~MailFile() { close(); }

    /// Nothing more can be read then; what is known about the file stays known.
    void close() noexcept;

    const std::string& path() const { return path_; }
    /// In bytes, as it was when the file was opened.
    std::uint64_t size() const { return size_; }
    /// When the file was changed last, or the present if that is told to lie in the future.
    /// Nothing when the system does not know.
    const std::optional<LocalTime>& changed() const { return changed_; }
    /// Whether the file is told to have been changed in the future.
    bool isAhead() const { return ahead_; }
    /// Reads up to `length` bytes and returns their number, which is smaller at the end of the
    /// file only. Fails with an `Error`.
    std::size_t read(std::uint64_t offset, char* bytes, std::size_t length) const;
    /// Fails with an `Error` that tells that somebody changed the file meanwhile.
    [[noreturn]] void failChanged() const;

 private:
    MailFile(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}

    int descriptor_;
    std::string path_;
    std::uint64_t size_ = 0;
    std::optional<LocalTime> changed_;
    bool ahead_ = false;
};

/// How each message of an mbox begins.
inline constexpr std::string_view kFromLine = "From ";

enum class FileStart { Mbox, Nothing, Other };

/// What a file begins with, which tells whether it is an mbox. Fails with an `Error`.
FileStart startOf(const std::string& path);

/// Where a message lies.
struct MessagePlace {
    std::shared_ptr<const MailFile> file;
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
    /// Whether the message must begin with `kFromLine`. Others may.
    bool inMbox = false;
};

}  // namespace pelk
