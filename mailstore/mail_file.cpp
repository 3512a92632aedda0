#include "mailstore/mail_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
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
    file->setChanged(status.st_mtim.tv_sec);
    return file;
}

std::shared_ptr<MailFile> MailFile::inMemory(std::string content, std::string path,
                                             std::int64_t changed) {
    std::shared_ptr<MailFile> file(new MailFile(-1, std::move(path)));
    file->size_ = content.size();
    file->content_ = std::move(content);
    file->setChanged(changed);
    file->ahead_ = true;
    return file;
}

std::shared_ptr<MailFile> MailFile::unpacked(const MailFile& original, int descriptor,
                                             const std::function<void()>& fill) {
    std::shared_ptr<MailFile> file(new MailFile(descriptor, original.path_));
    fill();
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        failReading(original.path_);
    file->size_ = static_cast<std::uint64_t>(status.st_size);
    file->changed_ = original.changed_;
    file->ahead_ = original.ahead_;
    return file;
}

void MailFile::setChanged(std::int64_t seconds) {
    const std::int64_t present = std::time(nullptr);
    ahead_ = seconds > present;
    // Archives without times give files the time 0.
    if (seconds > 0)
        changed_ = localTime(NotedTime{std::min(seconds, present)});
}

void MailFile::close() noexcept {
    if (const int descriptor = std::exchange(descriptor_, -1); descriptor >= 0)
        ::close(descriptor);
    content_ = {};
}

std::size_t MailFile::read(std::uint64_t offset, char* bytes, std::size_t length) const {
    if (descriptor_ < 0)
        return content_.copy(bytes, length, std::min<std::uint64_t>(offset, content_.size()));
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

}  // namespace pelk
