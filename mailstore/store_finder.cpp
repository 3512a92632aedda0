#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>

#include "mailstore/folder_name.h"
#include "mailstore/folder_place.h"
#include "mailstore/mail_file.h"
#include "mailstore/mail_text.h"
#include "mailstore/message_files.h"
#include "platform/mail_client.h"

namespace pelk {
namespace {

[[noreturn]] void failWithoutMail(const std::string& path) {
    throw NoMailFound(
        path +
        " holds no mail that can be read: neither an mbox, nor a Maildir, nor message "
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

/// Throws an `Error` unless there is mail in the directory `top` or anywhere below it: the fault of
/// what could not be read there, as that may be mail.
void requireMail(const FolderPlace& top) {
    std::optional<std::string> unknown;
    std::optional<Error> fault;
    const bool found = anyFolder(
        top,
        [&](const FolderPlace& place) {
            if (place.kind == FolderPlace::Kind::Unknown && !unknown)
                unknown = place.path;
            if (place.kind == FolderPlace::Kind::Directory)
                return hasMessageFiles(place.path);
            return place.kind != FolderPlace::Kind::Unknown;
        },
        [&fault](const Error& error) { fault = fault ? fault : error; });
    if (found)
        return;
    if (unknown)
        throw UnknownMailFormat(*unknown);
    if (fault)
        throw Error(*fault);
    failWithoutMail(top.path);
}

void findCompanion(FolderPlace& place) {
    const std::size_t begin = place.path.rfind('/') + 1;
    for (const std::string& name : companionNames(place.path.substr(begin))) {
        const std::string path = place.path.substr(0, begin) + name;
        struct stat status {};
        if (place.companion.empty() && ::stat(path.c_str(), &status) == 0 &&
            S_ISDIR(status.st_mode)) {
            place.companion = path;
            place.trail.push_back({status.st_dev, status.st_ino});
        }
    }
}

struct Free {
    void operator()(char* text) const { std::free(text); }
};

FolderPlace directoryStore(FolderPlace place, const struct stat& status) {
    place.kind = FolderPlace::Kind::Directory;
    place.trail.push_back({status.st_dev, status.st_ino});
    findCompanion(place);
    requireMail(place);
    return place;
}

FolderPlace fileStore(FolderPlace place) {
    if (nameOf(place.path) == kGearyFile) {
        place.kind = FolderPlace::Kind::Geary;
        place.geary = GearyStore::open(place.path);
        return place;
    }
    const FileStart start = startOf(place.path);
    if (start == FileStart::Mbox || start == FileStart::Nothing) {
        place.kind = FolderPlace::Kind::Mbox;
        findCompanion(place);
    } else if (isMessageFile({nameOf(place.path)}, [start] { return start; })) {
        place.kind = FolderPlace::Kind::SingleMessage;
    } else if (start == FileStart::Other) {
        failWithoutMail(place.path);
    } else {
        throw UnknownMailFormat(place.path);
    }
    return place;
}

}  // namespace

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
            if (name != (isDirectory ? kCacheSubfolders : kGearyFile))
                place += "/" + (isDirectory ? companionOwner(name).value_or(name) : name);
        }
    }
    return place.empty() ? "/" : place;
}

FolderPlace findStore(const std::string& path) {
    FolderPlace place;
    place.path = withoutFinalSlashes(path);
    const std::string name = nameOf(place.path);
    place.isStore = true;
    struct stat status {};
    if (::stat(place.path.c_str(), &status) != 0)
        failReading(place.path);
    place.canonical = canonicalPlace(place.path);
    place.name = S_ISDIR(status.st_mode) ? directoryTitle(name) : decodeText(name);
    return S_ISDIR(status.st_mode) ? directoryStore(std::move(place), status)
                                   : fileStore(std::move(place));
}

}  // namespace pelk
