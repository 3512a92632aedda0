#include "platform/windows/windows_files.h"

#include <windows.h>
// Requires the include above.
#include <bcrypt.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// Returns the system's message for an error number, without its full stop and line end.
std::string reasonOf(DWORD number) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, number, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string reason = toUtf8({text, length});
    reason.erase(reason.find_last_not_of(" .\r\n") + 1);
    return reason.empty() ? "error " + std::to_string(number) : reason;
}

/// Throws `Error` with what failed at the path and the system's reason.
[[noreturn]] void fail(const std::string& path, const char* what) {
    const DWORD number = GetLastError();
    throw Error(path + " cannot be " + what + ": " + reasonOf(number) + ".");
}

/// Returns the path for the system's functions, which need a prefix for long ones.
std::wstring systemPath(const std::string& path) {
    const std::wstring wide = toWide(path);
    constexpr std::size_t longestPlain = 240;
    if (wide.size() <= longestPlain || wide.starts_with(L"\\\\?\\"))
        return wide;
    std::wstring full(32768, L'\0');
    const DWORD length =
        GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size())
        return wide;
    full.resize(length);
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

/// Owns a file handle.
class FileHandle {
 public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    FileHandle(FileHandle&& other) noexcept
        : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    FileHandle& operator=(FileHandle&&) = delete;
    ~FileHandle() {
        if (isOpen())
            CloseHandle(handle_);
    }
    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

 private:
    HANDLE handle_;
};

struct SearchEnd {
    void operator()(HANDLE search) const { FindClose(search); }
};

/// The largest number of bytes per call.
constexpr std::size_t kSlice = std::size_t{1} << 26U;

class WindowsWritableFile : public WritableFile {
 public:
    WindowsWritableFile(FileHandle handle, std::string path)
        : handle_(std::move(handle)), path_(std::move(path)) {}

    void write(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD written = 0;
            if (!WriteFile(handle_.get(), bytes.data(),
                           static_cast<DWORD>(std::min(bytes.size(), kSlice)), &written, nullptr))
                fail(path_, "written");
            bytes.remove_prefix(written);
        }
    }

    void flushToDisk() override {
        if (!FlushFileBuffers(handle_.get()))
            fail(path_, "written");
    }

    void close() override {
        if (!CloseHandle(handle_.release()))
            fail(path_, "written");
    }

 private:
    FileHandle handle_;
    std::string path_;
};

/// Whether the path exists. Throws `Error` when it is a folder instead of a file, or the reverse.
bool exists(const std::string& path, bool folderWanted) {
    const DWORD attributes = GetFileAttributesW(systemPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD number = GetLastError();
        if (number != ERROR_FILE_NOT_FOUND && number != ERROR_PATH_NOT_FOUND)
            fail(path, "looked up");
        return false;
    }
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder != folderWanted)
        throw Error(path + (isFolder ? " is a folder, not a file." : " is a file, not a folder."));
    return true;
}

TemporaryNumber randomNumber(const std::string& path) {
    TemporaryNumber bytes{};
    if (BCryptGenRandom(nullptr, bytes.data(), bytes.size(), BCRYPT_USE_SYSTEM_PREFERRED_RNG) < 0)
        throw Error(path + " cannot be written: Windows gives no random number for its name.");
    return bytes;
}

}  // namespace

std::string WindowsFiles::join(const std::string& folder, const std::string& name) const {
    return folder.ends_with('\\') || folder.ends_with('/') ? folder + name : folder + "\\" + name;
}

bool WindowsFiles::folderExists(const std::string& path) {
    return exists(path, true);
}

bool WindowsFiles::fileExists(const std::string& path) {
    return exists(path, false);
}

void WindowsFiles::createFolder(const std::string& path) {
    if (!CreateDirectoryW(systemPath(path).c_str(), nullptr))
        fail(path, "created");
}

std::string WindowsFiles::readWholeFile(const std::string& path) {
    const FileHandle file(CreateFileW(systemPath(path).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER length{};
    if (!file.isOpen() || !GetFileSizeEx(file.get(), &length))
        fail(path, "read");
    std::string content(static_cast<std::size_t>(length.QuadPart), '\0');
    std::size_t size = 0;
    while (size < content.size()) {
        DWORD got = 0;
        if (!ReadFile(file.get(), content.data() + size,
                      static_cast<DWORD>(std::min(content.size() - size, kSlice)), &got, nullptr))
            fail(path, "read");
        if (got == 0)
            break;
        size += got;
    }
    content.resize(size);
    return content;
}

TemporaryFile WindowsFiles::createTemporary(const std::string& target) {
    exists(target, false);
    TemporaryFile temporary{temporaryName(target, randomNumber(target)), nullptr};
    const std::wstring path = systemPath(temporary.path);
    FileHandle handle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.isOpen())
        fail(target, "written");
    try {
        temporary.file = std::make_unique<WindowsWritableFile>(std::move(handle), target);
    } catch (...) {
        DeleteFileW(path.c_str());
        throw;
    }
    return temporary;
}

void WindowsFiles::removeLeftovers(const std::string& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE first = FindFirstFileW(systemPath(join(folder, "*")).c_str(), &found);
    if (first == INVALID_HANDLE_VALUE)
        return;
    const std::unique_ptr<void, SearchEnd> search(first);
    do
        if (const std::string name = toUtf8(found.cFileName); isTemporaryName(name))
            DeleteFileW(systemPath(join(folder, name)).c_str());
    while (FindNextFileW(search.get(), &found));
}

/// Retries, because a program that watches files may hold one for a moment.
void WindowsFiles::replaceFile(const std::string& from, const std::string& to) {
    constexpr int attempts = 20;
    constexpr DWORD pauseInMilliseconds = 25;
    const std::wstring source = systemPath(from);
    const std::wstring target = systemPath(to);
    for (int attempt = 1; !MoveFileExW(source.c_str(), target.c_str(),
                                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
         ++attempt) {
        const DWORD number = GetLastError();
        if (attempt == attempts ||
            (number != ERROR_ACCESS_DENIED && number != ERROR_SHARING_VIOLATION))
            fail(to, "replaced");
        Sleep(pauseInMilliseconds);
    }
}

void WindowsFiles::removeFile(const std::string& path) {
    if (!DeleteFileW(systemPath(path).c_str()))
        fail(path, "removed");
}

}  // namespace pelk
