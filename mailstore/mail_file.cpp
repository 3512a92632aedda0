#include "mailstore/mail_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

#include "mailstore/message_time.h"
#include "platform/error.h"

namespace pelk {

void failReading(const std::string& path) {
    const std::string reason = std::generic_category().message(errno);
    throw Error(path + " cannot be read: " + reason + ".");
}

std::shared_ptr<MailFile> MailFile::open(const std::string& path) {
    // Without O_NONBLOCK a named pipe would keep the program waiting.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        failReading(path);
    std::shared_ptr<MailFile> file(new MailFile(descriptor, path));
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        failReading(path);
    if (!S_ISREG(status.st_mode))
        throw Error(path + " cannot be read: it is not a file.");
    file->size_ = static_cast<std::uint64_t>(status.st_size);
    const std::int64_t modified = status.st_mtim.tv_sec;
    const std::int64_t present = std::time(nullptr);
    file->ahead_ = modified > present;
    // 0 is what files have that were packed without a time.
    if (modified > 0)
        file->changed_ = localTime(NotedTime{std::min(modified, present)});
    return file;
}

void MailFile::close() noexcept {
    if (const int descriptor = std::exchange(descriptor_, -1); descriptor >= 0)
        ::close(descriptor);
}

std::size_t MailFile::read(std::uint64_t offset, char* bytes, std::size_t length) const {
    std::size_t done = 0;
    while (done < length) {
        const ssize_t count =
            ::pread(descriptor_, bytes + done, length - done, static_cast<off_t>(offset + done));
        if (count < 0 && errno != EINTR)
            failReading(path_);
        if (count == 0)
            break;
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return done;
}

void MailFile::failChanged() const {
    throw Error(path_ + " cannot be read: it was changed by another program.");
}

FileStart startOf(const std::string& path) {
    std::array<char, kFromLine.size()> bytes{};
    const std::size_t length = MailFile::open(path)->read(0, bytes.data(), bytes.size());
    if (length == 0)
        return FileStart::Nothing;
    return std::string_view(bytes.data(), length) == kFromLine ? FileStart::Mbox : FileStart::Other;
}

}  // namespace pelk
