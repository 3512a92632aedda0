#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "mailstore/folder_name.h"
#include "mailstore/folder_place.h"
#include "mailstore/mail_file.h"
#include "mailstore/mail_text.h"
#include "platform/error.h"

namespace pelk {
namespace {

[[noreturn]] void failUnknown(const std::string& path) {
    throw Error(path +
                " holds no mail that can be read: neither an mbox, nor a Maildir, nor .eml "
                "files.");
}

/// Returns the last part of the absolute path, so "." has a name, too.
std::string nameOf(const std::string& path) {
    std::error_code error;
    std::filesystem::path whole = std::filesystem::absolute(path, error);
    whole = (whole / "").lexically_normal();
    // The path ends with a slash, so its parent path ends with the name.
    const std::string name = whole.parent_path().filename().string();
    return name.empty() ? path : name;
}

std::string withoutFinalSlashes(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

bool isMailDirectory(const FolderPlace& place) {
    for (const DirectoryEntry& entry : readDirectory(place.path))
        if (isMessageFile(entry) || isMaildirPart(entry))
            return true;
    return false;
}

/// Returns whether there is mail in the directory `top` or anywhere below it.
bool holdsMail(const FolderPlace& top) {
    return anyFolder(top, [](const FolderPlace& place) {
        return place.kind != FolderPlace::Kind::Directory || isMailDirectory(place);
    });
}

struct Free {
    void operator()(char* text) const { std::free(text); }
};

/// Returns the path for `FolderPlace::canonical`.
std::string canonicalPlace(const std::string& path) {
    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    if (!real)
        failReading(path);
    std::string place;
    std::filesystem::path onDisk = "/";
    for (const std::filesystem::path& part : std::filesystem::path(real.get()).relative_path()) {
        const std::string name = part.string();
        const bool inMaildir = name.starts_with('.') && isMaildir(onDisk.string());
        onDisk /= part;
        if (inMaildir && isMaildir(onDisk.string())) {
            for (const std::string& level : splitMaildirName(name))
                place += "/." + level;
        } else {
            std::error_code error;
            const bool isDirectory = std::filesystem::is_directory(onDisk, error);
            place += "/" + (isDirectory ? withoutCompanionEnding(name) : name);
        }
    }
    return place.empty() ? "/" : place;
}

FolderPlace directoryStore(FolderPlace place, const struct stat& status) {
    place.kind = FolderPlace::Kind::Directory;
    place.trail.push_back({status.st_dev, status.st_ino});
    // Fails if the directory cannot be read.
    readDirectory(place.path);
    if (!holdsMail(place))
        failUnknown(place.path);
    return place;
}

FolderPlace fileStore(FolderPlace place) {
    if (startOf(place.path) != FileStart::Other) {
        place.kind = FolderPlace::Kind::Mbox;
        struct stat status {};
        const std::string companion = place.path + std::string(kCompanionEnding);
        if (::stat(companion.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            place.companion = companion;
            place.trail.push_back({status.st_dev, status.st_ino});
        }
        return place;
    }
    if (!hasEnding(place.path, ".eml"))
        failUnknown(place.path);
    place.kind = FolderPlace::Kind::SingleMessage;
    return place;
}

}  // namespace

FolderPlace findStore(const std::string& path) {
    FolderPlace place;
    place.path = withoutFinalSlashes(path);
    place.name = decodeText(nameOf(place.path));
    place.isStore = true;
    struct stat status {};
    if (::stat(place.path.c_str(), &status) != 0)
        failReading(place.path);
    place.canonical = canonicalPlace(place.path);
    return S_ISDIR(status.st_mode) ? directoryStore(std::move(place), status)
                                   : fileStore(std::move(place));
}

}  // namespace pelk
