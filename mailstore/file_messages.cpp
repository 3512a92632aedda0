#include <utility>

#include "mailstore/directory.h"
#include "mailstore/emlx.h"
#include "mailstore/message_files.h"
#include "mailstore/message_time.h"
#include "mailstore/stored_messages.h"

namespace pelk {
namespace {

class FileMessages : public StoredMessages {
 public:
    explicit FileMessages(MessageFiles list) : list_(std::move(list)) {}

    std::size_t count() const override { return list_.files.size(); }

    ListedMessage message(std::size_t index) const override {
        const auto [found, file] = open(index);
        ListedMessage listed{std::make_shared<StoredMessage>(found.message, found.received)};
        listed.kind = itemKind(found.message, listed.message->header());
        // Callers need only the header from here on, and a process may have few files open.
        file->close();
        return listed;
    }

    MessagePlace place(std::size_t index) const override { return open(index).first.message; }

 private:
    std::pair<Emlx, std::shared_ptr<MailFile>> open(std::size_t index) const {
        const MessageFiles::File& entry = list_.files[index];
        const MessageFiles::Directory& directory = list_.directories[entry.directory];
        auto file = MailFile::open(directory.path + entry.name);
        Emlx found{{file, 0, file->size(), false}, {}, false};
        if (hasEnding(entry.name, kEmlxEnding))
            found = readEmlx(file);
        else if (directory.namesHoldTimes)
            found.received.seconds = maildirNameTime(entry.name).value_or(kNoTime);
        return {std::move(found), std::move(file)};
    }

    const MessageFiles list_;
};

}  // namespace

std::unique_ptr<StoredMessages> openSingleMessage(const std::string& path) {
    const std::size_t begin = path.rfind('/') + 1;
    return std::make_unique<FileMessages>(
        MessageFiles{{{path.substr(0, begin)}}, {{path.substr(begin)}}});
}

std::unique_ptr<StoredMessages> openDirectory(const std::string& path) {
    return std::make_unique<FileMessages>(listMessageFiles(path));
}

}  // namespace pelk
