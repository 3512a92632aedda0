#include "mailstore/compressed_file.h"
#include "mailstore/mbox_index.h"
#include "mailstore/stored_messages.h"

namespace pelk {
namespace {

class MboxMessages : public StoredMessages {
 public:
    explicit MboxMessages(const std::string& path)
        : file_(openContent(path)), entries_(indexMbox(*file_)) {}

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
    std::shared_ptr<const MailFile> file_;
    std::vector<MboxEntry> entries_;
};

}  // namespace

std::unique_ptr<StoredMessages> openMbox(const std::string& path) {
    return std::make_unique<MboxMessages>(path);
}

}  // namespace pelk
