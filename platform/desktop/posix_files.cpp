#include "platform/desktop/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <thread>
#include <utility>

namespace pelk {
namespace {

/// What went wrong with the path, with the system's own reason for it.
[[noreturn]] void fail(const std::string& path, const std::string& what) {
    throw Error(path + " cannot be " + what + ": " + std::strerror(errno) + ".");
}

/// An open file, closed at the end.
class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }

 private:
    int number_;
};

class PosixWritableFile : public WritableFile {
 public:
    PosixWritableFile(int descriptor, std::string path)
        : descriptor_(descriptor), path_(std::move(path)) {}

    void write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_.get(), bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR)
                fail(path_, "written");
            if (written > 0)
                bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        // The disk sets to work while more is written. Whether it succeeds is for the flush to
        // tell.
        ::sync_file_range(descriptor_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
    }

    void flushToDisk() override {
        if (::fsync(descriptor_.get()) != 0)
            fail(path_, "written");
    }

    void close() override {
        if (::close(descriptor_.release()) != 0)
            fail(path_, "written");
    }

 private:
    Descriptor descriptor_;
    std::string path_;
};

/// Closes a file that has no name any more. The system frees its content then, which takes about
/// as long as writing it did, so nobody waits for that.
void letGoOf(Descriptor file) {
    try {
        std::thread([file = std::move(file)] {}).detach();
    } catch (const std::exception&) {
        // No thread was to be had, and it has been closed here.
    }
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool hasType(const std::string& path, mode_t type) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == type;
}

}  // namespace

std::string PosixFiles::join(const std::string& folder, const std::string& name) const {
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

bool PosixFiles::folderExists(const std::string& path) {
    return hasType(path, S_IFDIR);
}

bool PosixFiles::fileExists(const std::string& path) {
    return hasType(path, S_IFREG);
}

void PosixFiles::createFolder(const std::string& path) {
    if (::mkdir(path.c_str(), S_IRWXU) != 0)
        fail(path, "created");
}

std::string PosixFiles::readWholeFile(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        fail(path, "read");
    std::string content;
    constexpr std::size_t slice = 1U << 16U;
    // One byte more than the file has, so that its end is seen without growing the text.
    content.resize(static_cast<std::size_t>(status.st_size) + 1);
    std::size_t size = 0;
    while (true) {
        const ssize_t got = ::read(file.get(), content.data() + size, content.size() - size);
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            fail(path, "read");
        if (got > 0)
            size += static_cast<std::size_t>(got);
        if (size == content.size())
            content.resize(size + slice);
    }
    content.resize(size);
    return content;
}

std::unique_ptr<WritableFile> PosixFiles::createFile(const std::string& path) {
    const int descriptor =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        fail(path, "written");
    return std::make_unique<PosixWritableFile>(descriptor, path);
}

void PosixFiles::replaceFile(const std::string& from, const std::string& to) {
    // This opens anything, whatever its mode, and never waits.
    Descriptor replaced(::open(to.c_str(), O_PATH | O_CLOEXEC));
    if (::rename(from.c_str(), to.c_str()) != 0)
        fail(to, "replaced");
    // The new name counts once the folder that holds it is on the disk.
    const Descriptor folder(::open(folderOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() < 0 || ::fsync(folder.get()) != 0)
        fail(to, "replaced");
    if (replaced.get() >= 0)
        letGoOf(std::move(replaced));
}

void PosixFiles::removeFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0)
        fail(path, "removed");
}

}  // namespace pelk
