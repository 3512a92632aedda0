#include "mailstore/message_files.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string_view>

#include "mailstore/emlx.h"
#include "mailstore/folder_name.h"
#include "mailstore/mail_file.h"
#include "mailstore/mozilla_status.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kUuidLength = 36;

bool isVisibleFile(const DirectoryEntry& entry) {
    return !entry.isDirectory && !entry.name.starts_with('.');
}

bool isNumber(std::string_view name) {
    return name.find_first_not_of(kDigits) == std::string_view::npos;
}

bool isUuid(std::string_view name) {
    return name.size() == kUuidLength &&
           name.find_first_not_of("0123456789abcdefABCDEF-") == std::string_view::npos;
}

/// Returns whether Evolution spreads the files of its IMAP cache over directories of that name.
bool isCachePart(const DirectoryEntry& entry) {
    return entry.isDirectory && entry.name.size() == 2 &&
           entry.name.find_first_not_of("0123456789abcdef") == std::string::npos;
}

/// Calls `isMarked` with the file. Returns false if it fails: then reading the message reports the
/// fault to the user.
template <typename Function>
bool isMarkedDeleted(const std::string& path, Function isMarked) {
    try {
        return isMarked(MailFile::open(path));
    } catch (const Error&) {
        return false;
    }
}

bool isDeletedEmlx(const std::string& path) {
    return isMarkedDeleted(path, [](const auto& file) { return readEmlx(file).deleted; });
}

bool startsExpunged(const std::string& path) {
    return isMarkedDeleted(path, [](const auto& file) {
        std::array<char, kMozillaStatusReach> start{};
        return isExpunged({start.data(), file->read(0, start.data(), start.size())});
    });
}

class Collector {
 public:
    explicit Collector(const std::string& path)
        : path_(path), isAppleMailbox_(hasEnding(path, kAppleMailboxEnding)) {}

    MessageFiles run() {
        const std::vector<DirectoryEntry> entries = readDirectory(path_);
        addMessages(path_ + "/", entries);
        const auto own = static_cast<std::ptrdiff_t>(list_.files.size());
        for (const DirectoryEntry& entry : entries) {
            const std::string inner = path_ + "/" + entry.name + "/";
            if (isMaildirPart(entry))
                addMaildirPart(inner, entry.name == "cur");
            else if (isAppleMailbox_ && entry.isDirectory && isAppleMailPart(entry.name))
                addAppleMailPart(inner, entry.id);
        }
        std::stable_sort(list_.files.begin() + own, list_.files.end(),
                         [](const auto& a, const auto& b) { return a.name < b.name; });
        return std::move(list_);
    }

 private:
    void open(const std::string& path, bool namesHoldTimes) {
        list_.directories.push_back({path, namesHoldTimes});
    }

    void add(const std::string& name) {
        list_.files.push_back({name, list_.directories.size() - 1});
    }

    void addMessages(const std::string& path, const std::vector<DirectoryEntry>& entries) {
        open(path, false);
        for (const DirectoryEntry& entry : entries) {
            const std::string file = path + entry.name;
            if (isMessageFile(entry, [&] { return startOf(file); }) &&
                !(hasEnding(entry.name, kEmlxEnding) && isDeletedEmlx(file)))
                add(entry.name);
        }
    }

    /// Thunderbird marks deleted messages in the header, writes no flags into the name and leaves
    /// `new` empty, so only such files are opened.
    void addMaildirPart(const std::string& path, bool isCur) {
        open(path, true);
        std::vector<std::string> cacheParts;
        for (const DirectoryEntry& entry : readDirectory(path)) {
            const std::optional<std::string_view> flags = maildirFlags(entry.name);
            if (isCur && isCachePart(entry))
                cacheParts.push_back(path + entry.name + "/");
            else if (isVisibleFile(entry) && !(flags ? flags->find('T') != std::string_view::npos
                                                     : isCur && startsExpunged(path + entry.name)))
                add(entry.name);
        }
        for (const std::string& part : cacheParts)
            addCachePart(part);
    }

    void addCachePart(const std::string& path) {
        open(path, false);
        for (const DirectoryEntry& entry : readDirectory(path))
            if (isVisibleFile(entry))
                add(entry.name);
    }

    void addAppleMailPart(const std::string& path, const DirectoryId& id) {
        if (!seen_.insert(id).second)
            return;
        const std::vector<DirectoryEntry> entries = readDirectory(path);
        if (path.ends_with("/Messages/"))
            addMessages(path, entries);
        for (const DirectoryEntry& entry : entries)
            if (entry.isDirectory && (isAppleMailPart(entry.name) || isNumber(entry.name)))
                addAppleMailPart(path + entry.name + "/", entry.id);
    }

    const std::string& path_;
    const bool isAppleMailbox_;
    MessageFiles list_;
    std::set<DirectoryId> seen_;
};

}  // namespace

bool isAppleMailPart(const std::string& name) {
    return name == "Data" || name == "Messages" || isUuid(name);
}

bool isMessageFile(const DirectoryEntry& entry, const std::function<FileStart()>& start) {
    if (!isVisibleFile(entry))
        return false;
    if (hasEnding(entry.name, ".eml") || hasEnding(entry.name, kEmlxEnding))
        return true;
    try {
        return isNumber(entry.name) && start() == FileStart::Message;
    } catch (const Error&) {
        // An mbox may have such a name, too. The folder listing reports the fault.
        return false;
    }
}

MessageFiles listMessageFiles(const std::string& path) {
    return Collector(path).run();
}

bool hasMessageFiles(const std::string& path) {
    const std::vector<DirectoryEntry> entries = readDirectory(path);
    return std::any_of(entries.begin(), entries.end(),
                       [&](const DirectoryEntry& entry) {
                           return isMaildirPart(entry) || isMessageFile(entry, [&] {
                                      return startOf(path + "/" + entry.name);
                                  });
                       }) ||
           (hasEnding(path, kAppleMailboxEnding) && !listMessageFiles(path).files.empty());
}

}  // namespace pelk
