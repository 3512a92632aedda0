#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "mailstore/directory.h"
#include "mailstore/folder_name.h"
#include "mailstore/message_time.h"
#include "mailstore/mozilla_status.h"
#include "mailstore/stored_messages.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr const char* kRead = "cur/";

struct MessageFile {
    std::string name;
    /// The subdirectory of the folder: "", "cur/" or "new/".
    const char* place = "";
};

class FileMessages : public StoredMessages {
 public:
    /// `directory` ends with a slash.
    FileMessages(std::string directory, std::vector<MessageFile> files)
        : directory_(std::move(directory)), files_(std::move(files)) {}

    std::size_t count() const override { return files_.size(); }

    ListedMessage message(std::size_t index) const override {
        const MessageFile& entry = files_[index];
        const auto file = MailFile::open(directory_ + entry.place + entry.name);
        const MessagePlace place{file, 0, file->size(), false};
        NotedTime received;
        if (*entry.place != '\0')
            received.seconds = maildirNameTime(entry.name).value_or(kNoTime);
        ListedMessage listed{std::make_shared<StoredMessage>(place, received)};
        listed.kind = itemKind(place, listed.message->header());
        // Callers need only the header from here on, and a process may have few files open.
        file->close();
        return listed;
    }

 private:
    std::string directory_;
    std::vector<MessageFile> files_;
};

bool startsExpunged(const std::string& path) {
    try {
        std::array<char, kMozillaStatusReach> start{};
        const std::size_t length = MailFile::open(path)->read(0, start.data(), start.size());
        return isExpunged({start.data(), length});
    } catch (const Error&) {
        // Reading the message reports the fault to the user.
        return false;
    }
}

/// Returns whether the mail program marked the message as deleted. Thunderbird marks it in the
/// header, writes no flags into the name and leaves `new` empty, so only such files are opened.
bool isDeleted(const std::string& prefix, std::string_view place, const std::string& name) {
    if (const std::optional<std::string_view> flags = maildirFlags(name))
        return flags->find('T') != std::string_view::npos;
    return place == kRead && startsExpunged(prefix + kRead + name);
}

}  // namespace

std::unique_ptr<StoredMessages> openSingleMessage(const std::string& path) {
    const std::size_t begin = path.rfind('/') + 1;
    return std::make_unique<FileMessages>(path.substr(0, begin),
                                          std::vector<MessageFile>{{path.substr(begin), ""}});
}

std::unique_ptr<StoredMessages> openDirectory(const std::string& path) {
    const std::string prefix = path + "/";
    std::vector<MessageFile> own;
    std::vector<MessageFile> maildir;
    for (DirectoryEntry& entry : readDirectory(path)) {
        if (isMessageFile(entry)) {
            own.push_back({std::move(entry.name), ""});
        } else if (isMaildirPart(entry)) {
            const char* const place = entry.name == "cur" ? kRead : "new/";
            for (DirectoryEntry& message : readDirectory(prefix + entry.name))
                if (!message.isDirectory && !message.name.starts_with('.') &&
                    !isDeleted(prefix, place, message.name))
                    maildir.push_back({std::move(message.name), place});
        }
    }
    std::stable_sort(maildir.begin(), maildir.end(),
                     [](const auto& a, const auto& b) { return a.name < b.name; });
    own.insert(own.end(), std::make_move_iterator(maildir.begin()),
               std::make_move_iterator(maildir.end()));
    return std::make_unique<FileMessages>(prefix, std::move(own));
}

}  // namespace pelk
