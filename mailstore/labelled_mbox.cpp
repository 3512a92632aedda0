#include "mailstore/labelled_mbox.h"

#include <algorithm>
#include <unordered_map>

#include "mailstore/compressed_file.h"
#include "mailstore/gmail_labels.h"
#include "mailstore/message_header.h"

namespace pelk {
namespace {

constexpr const char* kField = "X-Gmail-Labels";
/// The labels are among the first fields.
constexpr std::size_t kStart = 16UL << 10;

bool isLabelled(const std::string& path) {
    std::string start = startOfContent(path, kStart);
    start.resize(std::min(start.find("\n\n"), start.size()));
    start.resize(std::min(start.find("\r\n\r\n"), start.size()));
    const MessageHeader header(std::move(start));
    return !header.first(kField).empty() && !header.first("X-GM-THRID").empty();
}

}  // namespace

std::shared_ptr<const LabelledMbox> LabelledMbox::openIfLabelled(const std::string& path) {
    return isLabelled(path) ? std::shared_ptr<const LabelledMbox>(new LabelledMbox(path)) : nullptr;
}

LabelledMbox::LabelledMbox(const std::string& path) : file_(openContent(path)) {
    // Few combinations of labels occur, and decoding takes longer than finding them here.
    std::unordered_map<std::string, std::vector<MboxEntry>*> known;
    for (const MboxEntry& entry : indexMbox(*file_)) {
        const std::string value =
            readHeader({file_, entry.offset, entry.end - entry.offset, true}).first(kField);
        std::vector<MboxEntry>*& entries = known[value];
        if (entries == nullptr)
            entries = &byLabel_[mainLabel(value)];
        entries->push_back(entry);
    }
}

std::vector<std::string> LabelledMbox::labels() const {
    std::vector<std::string> names;
    names.reserve(byLabel_.size());
    for (const auto& [label, entries] : byLabel_)
        if (!label.empty())
            names.push_back(label);
    return names;
}

std::unique_ptr<StoredMessages> LabelledMbox::messagesOf(const std::string& label) const {
    const auto found = byLabel_.find(label);
    return openMbox(file_, found == byLabel_.end() ? std::vector<MboxEntry>() : found->second);
}

}  // namespace pelk
