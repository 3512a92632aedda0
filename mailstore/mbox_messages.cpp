#include "mailstore/compressed_file.h"
#include "mailstore/mbox_index.h"
#include "mailstore/stored_messages.h"

namespace pelk {
namespace {

class MboxMessages : public StoredMessages {
 public:
    MboxMessages(std::shared_ptr<const MailFile> file, std::vector<MboxEntry> entries)
        : file_(std::move(file)), entries_(std::move(entries)) {}

    std::size_t count() const override { return entries_.size(); }

    ListedMessage message(std::size_t index) const override {
        const MboxEntry& entry = entries_[index];
        const NotedTime received{entry.received, entry.onWallClock};
        ListedMessage listed{std::make_shared<StoredMessage>(place(index), received)};
        if (entry.doubtful)
            listed.kind = itemKind(place(index), listed.message->header());
        return listed;
    }

    MessagePlace place(std::size_t index) const override {
        const MboxEntry& entry = entries_[index];
        return {file_, entry.offset, entry.end - entry.offset, true};
    }

 private:
    const std::shared_ptr<const MailFile> file_;
    const std::vector<MboxEntry> entries_;
};

}  // namespace

std::unique_ptr<StoredMessages> openMbox(const std::string& path) {
    std::shared_ptr<const MailFile> file = openContent(path);
    std::vector<MboxEntry> entries = indexMbox(*file);
    return openMbox(std::move(file), std::move(entries));
}

std::unique_ptr<StoredMessages> openMbox(std::shared_ptr<const MailFile> file,
                                         std::vector<MboxEntry> entries) {
    return std::make_unique<MboxMessages>(std::move(file), std::move(entries));
}

}  // namespace pelk
