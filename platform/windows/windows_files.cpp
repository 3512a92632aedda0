#include "platform/windows/windows_files.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// The system's words for an error number, without the full stop and line end that it adds.
std::string reasonOf(DWORD number) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, number, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string reason = toUtf8({text, length});
    reason.erase(reason.find_last_not_of(" .\r\n") + 1);
    return reason.empty() ? "error " + std::to_string(number) : reason;
}

/// What went wrong with the path, with the system's own reason for it.
[[noreturn]] void fail(const std::string& path, const char* what) {
    const DWORD number = GetLastError();
    throw Error(path + " cannot be " + what + ": " + reasonOf(number) + ".");
}

/// The path as the system's functions take it. They take a long one only in a form of its own.
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

/// An open file, closed at the end.
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

/// The most bytes that go to the system in one call.
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

/// The attributes of what stands at the path; nothing stands there when they are invalid.
DWORD attributesOf(const std::string& path) {
    return GetFileAttributesW(systemPath(path).c_str());
}

}  // namespace

std::string WindowsFiles::join(const std::string& folder, const std::string& name) const {
    return folder.ends_with('\\') || folder.ends_with('/') ? folder + name : folder + "\\" + name;
}

bool WindowsFiles::folderExists(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool WindowsFiles::fileExists(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
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

std::unique_ptr<WritableFile> WindowsFiles::createFile(const std::string& path) {
    FileHandle file(CreateFileW(systemPath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen())
        fail(path, "written");
    return std::make_unique<WindowsWritableFile>(std::move(file), path);
}

/// A program that watches files may hold one for a moment, so a refusal is not taken at once.
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
