#include "platform/desktop/posix_files.h"

#include <dirent.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <thread>
#include <utility>

#include "platform/desktop/descriptor.h"
#include "platform/desktop/uninterrupted.h"

namespace pelk {
namespace {

class PosixWritableFile : public WritableFile {
 public:
    /// `path` is the one that messages name.
    PosixWritableFile(Descriptor descriptor, std::string path)
        : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

    void write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = uninterrupted(
                [&] { return ::write(descriptor_.get(), bytes.data(), bytes.size()); });
            if (written < 0)
                failToBe(path_, "written");
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        // Starts the transfer to the disk early. A failure is reported by `flushToDisk`.
        ::sync_file_range(descriptor_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
    }

    void flushToDisk() override {
        if (uninterrupted([this] { return ::fsync(descriptor_.get()); }) != 0)
            failToBe(path_, "written");
    }

    void close() override {
        // A close that was interrupted has closed the file nevertheless.
        if (::close(descriptor_.release()) != 0 && errno != EINTR)
            failToBe(path_, "written");
    }

 private:
    Descriptor descriptor_;
    std::string path_;
};

/// Closes a file that has no name any more. The system then frees its blocks, which takes about as
/// long as writing them, so a thread of its own does it.
void letGoOf(Descriptor file) {
    try {
        std::thread([file = std::move(file)] {}).detach();
    } catch (const std::exception&) {
        // No thread could be started, so the file was closed here.
    }
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

const char* kindOf(mode_t mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return "a file";
        case S_IFDIR:
            return "a folder";
        case S_IFIFO:
            return "a pipe";
        case S_IFSOCK:
            return "a socket";
        default:
            return "a device";
    }
}

/// Whether the path exists. Throws `Error` when it is of another type than `wanted`, or a link
/// whose target is missing.
bool exists(const std::string& path, mode_t wanted) {
    struct stat status {};
    if (uninterrupted([&] { return ::stat(path.c_str(), &status); }) == 0) {
        if ((status.st_mode & S_IFMT) != wanted)
            throw Error(path + " is " + kindOf(status.st_mode) + ", not " + kindOf(wanted) + ".");
        return true;
    }
    if (errno != ENOENT)
        failToBe(path, "looked up");
    if (uninterrupted([&] { return ::lstat(path.c_str(), &status); }) == 0)
        throw Error(path + " is a symbolic link to a missing file.");
    if (errno != ENOENT)
        failToBe(path, "looked up");
    return false;
}

/// Returns the target of a symbolic link, or the path itself.
std::string behindLink(const std::string& path) {
    struct stat status {};
    if (uninterrupted([&] { return ::lstat(path.c_str(), &status); }) != 0) {
        if (errno != ENOENT)
            failToBe(path, "looked up");
        return path;
    }
    if (!S_ISLNK(status.st_mode))
        return path;
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    if (!real)
        failToBe(path, "looked up");
    return real.get();
}

TemporaryNumber randomNumber(const std::string& path) {
    TemporaryNumber bytes{};
    if (uninterrupted([&] { return ::getrandom(bytes.data(), bytes.size(), 0); }) !=
        static_cast<ssize_t>(bytes.size()))
        failToBe(path, "written");
    return bytes;
}

}  // namespace

std::string PosixFiles::join(const std::string& folder, const std::string& name) const {
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

bool PosixFiles::folderExists(const std::string& path) {
    return exists(path, S_IFDIR);
}

bool PosixFiles::fileExists(const std::string& path) {
    return exists(path, S_IFREG);
}

void PosixFiles::createFolder(const std::string& path) {
    if (uninterrupted([&] { return ::mkdir(path.c_str(), S_IRWXU); }) != 0)
        failToBe(path, "created");
}

std::string PosixFiles::readWholeFile(const std::string& path) {
    const Descriptor file = openFile(path, O_RDONLY);
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        failToBe(path, "read");
    std::string content;
    constexpr std::size_t slice = 1U << 16U;
    // One byte more than the file has, so that reading meets the end without growing the text.
    content.resize(static_cast<std::size_t>(status.st_size) + 1);
    std::size_t size = 0;
    while (true) {
        const ssize_t got = uninterrupted(
            [&] { return ::read(file.get(), content.data() + size, content.size() - size); });
        if (got == 0)
            break;
        if (got < 0)
            failToBe(path, "read");
        size += static_cast<std::size_t>(got);
        if (size == content.size())
            content.resize(size + slice);
    }
    content.resize(size);
    return content;
}

TemporaryFile PosixFiles::createTemporary(const std::string& target) {
    // Throws for a device or a pipe, which must not be replaced by a file.
    exists(target, S_IFREG);
    const std::string real = behindLink(target);
    TemporaryFile temporary{temporaryName(real, randomNumber(target)), nullptr};
    Descriptor descriptor =
        openFile(temporary.path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor.get() < 0)
        failToBe(target, "written");
    try {
        temporary.file = std::make_unique<PosixWritableFile>(std::move(descriptor), target);
    } catch (...) {
        ::unlink(temporary.path.c_str());
        throw;
    }
    return temporary;
}

void PosixFiles::removeLeftovers(const std::string& folder) {
    DIR* const listing = ::opendir(folder.c_str());
    if (listing == nullptr)
        return;
    while (const dirent* const entry = ::readdir(listing))
        if (isTemporaryName(entry->d_name))
            ::unlinkat(::dirfd(listing), entry->d_name, 0);
    ::closedir(listing);
}

void PosixFiles::replaceFile(const std::string& from, const std::string& to) {
    const std::string real = behindLink(to);
    const std::string folderPath = folderOf(real);
    // O_PATH needs no permission for the file and never blocks.
    Descriptor replaced = openFile(real, O_PATH);
    if (uninterrupted([&] { return ::rename(from.c_str(), real.c_str()); }) != 0)
        failToBe(to, "replaced");
    // The new name is durable once its folder is synced. A failure of that is not reported, because
    // the replacement itself has happened.
    const Descriptor folder = openFile(folderPath, O_RDONLY | O_DIRECTORY);
    if (folder.get() >= 0)
        uninterrupted([&folder] { return ::fsync(folder.get()); });
    if (replaced.get() >= 0)
        letGoOf(std::move(replaced));
}

void PosixFiles::removeFile(const std::string& path) {
    if (uninterrupted([&] { return ::unlink(path.c_str()); }) != 0)
        failToBe(path, "removed");
}

}  // namespace pelk
