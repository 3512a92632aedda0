#include "platform/desktop/mail/mbox_index.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/desktop/mail/mail_text.h"
#include "platform/desktop/mail/message_time.h"

namespace pelk {
namespace {

constexpr std::size_t kBufferSize = 1UL << 20;
// What is looked for begins within the buffer and ends at most this far behind.
constexpr std::size_t kLookAhead = 512;
// The empty line before a message, and the end of the line before that.
constexpr std::size_t kLookBehind = 3;

/// Whether `text`, which follows a slash, can make the type of a calendar or a report of it.
bool isDoubtful(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return false;
    text.remove_prefix(begin);
    constexpr std::string_view kCalendar = "calendar";
    constexpr std::string_view kReport = "report";
    // A comment may stand in between.
    return text.front() == '(' || equalsIgnoringCase(text.substr(0, kCalendar.size()), kCalendar) ||
           equalsIgnoringCase(text.substr(0, kReport.size()), kReport);
}

/// The same, quickly told for nearly every slash.
bool mayBeDoubtful(char following) {
    return std::string_view("cCrR( \t\r\n").find(following) != std::string_view::npos;
}

class MboxScan {
 public:
    explicit MboxScan(const MailFile& file)
        : file_(file), buffer_(std::min<std::uint64_t>(kBufferSize, file.size())) {}

    std::vector<MboxEntry> run() {
        fill(0);
        if (text().starts_with(kFromLine))
            addEntry(0);
        std::size_t begin = 0;
        while (begin < length_) {
            const bool last = offset_ + length_ >= file_.size();
            const std::size_t end = last ? length_ : length_ - kLookAhead;
            scan(begin, end);
            if (last)
                break;
            fill(end - kLookBehind);
            begin = kLookBehind;
        }
        return std::move(entries_);
    }

 private:
    std::string_view text() const { return {buffer_.data(), length_}; }

    /// Lets go of the first `passed` bytes and reads on behind the others.
    void fill(std::size_t passed) {
        std::copy(buffer_.data() + passed, buffer_.data() + length_, buffer_.data());
        length_ -= passed;
        offset_ += passed;
        const std::size_t wanted =
            std::min<std::uint64_t>(buffer_.size() - length_, file_.size() - offset_ - length_);
        if (file_.read(offset_ + length_, buffer_.data() + length_, wanted) < wanted)
            file_.failChanged();
        length_ += wanted;
    }

    /// Finds what begins in the given part of the buffer.
    void scan(std::size_t begin, std::size_t end) {
        while (begin < end) {
            const std::size_t next = findMessage(begin, end);
            markDoubtful(begin, next);
            if (next < end)
                addEntry(next);
            // Past the beginning of this message, to find the next.
            begin = next + 1;
        }
    }

    /// Where the next message begins; `end` when there is none before.
    std::size_t findMessage(std::size_t begin, std::size_t end) const {
        constexpr std::string_view kPattern = "\nFrom ";
        std::size_t from = begin == 0 ? 0 : begin - 1;
        for (;;) {
            const char* const limit = buffer_.data() + std::min(end + kFromLine.size(), length_);
            const char* const at = buffer_.data() + from;
            const void* const found = at < limit
                                          ? ::memmem(at, static_cast<std::size_t>(limit - at),
                                                     kPattern.data(), kPattern.size())
                                          : nullptr;
            if (found == nullptr)
                return end;
            const std::size_t line =
                static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data()) + 1;
            if (line >= end)
                return end;
            const std::string_view before = text().substr(0, line);
            if (before.ends_with("\n\n") || before.ends_with("\n\r\n"))
                return line;
            from = line;
        }
    }

    void markDoubtful(std::size_t begin, std::size_t end) {
        if (entries_.empty() || entries_.back().doubtful)
            return;
        while (begin < end) {
            const void* const found = std::memchr(buffer_.data() + begin, '/', end - begin);
            if (found == nullptr)
                return;
            begin = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data()) + 1;
            if (begin < length_ && mayBeDoubtful(buffer_[begin]) &&
                isDoubtful(text().substr(begin, kLookAhead - 1))) {
                entries_.back().doubtful = true;
                return;
            }
        }
    }

    void addEntry(std::size_t at) {
        const std::string_view line = text().substr(at, kLookAhead);
        entries_.push_back({offset_ + at, fromLineTime(line.substr(0, line.find('\n'))), false});
    }

    const MailFile& file_;
    std::vector<char> buffer_;
    std::size_t length_ = 0;
    /// Of the buffer in the file.
    std::uint64_t offset_ = 0;
    std::vector<MboxEntry> entries_;
};

}  // namespace

std::vector<MboxEntry> indexMbox(const MailFile& file) {
    return MboxScan(file).run();
}

}  // namespace pelk
