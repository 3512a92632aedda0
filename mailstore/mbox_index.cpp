#include "mailstore/mbox_index.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <string_view>

#include "mailstore/mail_text.h"
#include "mailstore/message_time.h"
#include "mailstore/mozilla_status.h"
#include "platform/parallel.h"

namespace pelk {
namespace {

// The file is searched in parts. A match begins inside a part and ends at most `kLookAhead` bytes
// after it.
constexpr std::uint64_t kPartSize = 1UL << 20;
constexpr std::size_t kLookAhead = kMozillaStatusReach;
// An empty line precedes a message, and the end of another line precedes that.
constexpr std::size_t kLookBehind = 3;

/// Returns whether `text` after a slash can be the subtype of a calendar or a report.
bool isDoubtful(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return false;
    text.remove_prefix(begin);
    constexpr std::string_view kCalendar = "calendar";
    constexpr std::string_view kReport = "report";
    // A comment may precede the subtype.
    return text.front() == '(' || equalsIgnoringCase(text.substr(0, kCalendar.size()), kCalendar) ||
           equalsIgnoringCase(text.substr(0, kReport.size()), kReport);
}

/// A quick test of the character after a slash. Returns false for nearly every slash.
bool mayBeDoubtful(char following) {
    return std::string_view("cCrR( \t\r\n").find(following) != std::string_view::npos;
}

/// The messages that begin in one part of the file.
struct Part {
    std::vector<MboxEntry> entries;
    /// Whether the text before the first of them makes the preceding message doubtful.
    bool doubtfulBefore = false;
};

/// Searches one part after another. All parts use one buffer.
class PartScan {
 public:
    explicit PartScan(const MailFile& file)
        : file_(file), buffer_(std::min(kLookBehind + kPartSize + kLookAhead, file.size())) {}

    Part run(std::uint64_t partBegin) {
        part_ = {};
        read(partBegin);
        std::size_t begin = partBegin - offset_;
        const std::size_t end = std::min(begin + kPartSize, length_);
        if (partBegin == 0 && text().starts_with(kFromLine))
            addEntry(0);
        while (begin < end) {
            const std::size_t next = findMessage(begin, end);
            markDoubtful(begin, next);
            if (next < end)
                addEntry(next);
            // Skip the start of this message, to find the next.
            begin = next + 1;
        }
        return std::move(part_);
    }

 private:
    std::string_view text() const { return {buffer_.data(), length_}; }

    void read(std::uint64_t partBegin) {
        offset_ = partBegin - std::min<std::uint64_t>(partBegin, kLookBehind);
        length_ = std::min<std::uint64_t>(buffer_.size(), file_.size() - offset_);
        if (file_.read(offset_, buffer_.data(), length_) < length_)
            file_.failChanged();
    }

    /// Returns where the next message begins, or `end` if none begins before that.
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
            const std::string_view before = text().substr(0, line);
            if (before.ends_with("\n\n") || before.ends_with("\n\r\n"))
                return line;
            from = line;
        }
    }

    void markDoubtful(std::size_t begin, std::size_t end) {
        bool& doubtful =
            part_.entries.empty() ? part_.doubtfulBefore : part_.entries.back().doubtful;
        while (begin < end && !doubtful) {
            const void* const found = std::memchr(buffer_.data() + begin, '/', end - begin);
            if (found == nullptr)
                return;
            begin = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data()) + 1;
            doubtful = begin < length_ && mayBeDoubtful(buffer_[begin]) &&
                       isDoubtful(text().substr(begin, kLookAhead - 1));
        }
    }

    void addEntry(std::size_t at) {
        const std::string_view start = text().substr(at, kLookAhead);
        const NotedTime received = fromLineTime(start.substr(0, start.find('\n')));
        part_.entries.push_back(
            {offset_ + at, 0, received.seconds, received.onWallClock, false, isExpunged(start)});
    }

    const MailFile& file_;
    std::vector<char> buffer_;
    std::size_t length_ = 0;
    /// The offset of the buffer in the file.
    std::uint64_t offset_ = 0;
    Part part_;
};

/// Searches all parts on two threads. They take the parts in order, so the disk reads in order.
std::vector<Part> scanParts(const MailFile& file) {
    std::vector<Part> parts((file.size() + kPartSize - 1) / kPartSize);
    std::atomic<std::size_t> next = 0;
    const auto scanSome = [&] {
        PartScan scan(file);
        for (std::size_t i = next++; i < parts.size(); i = next++)
            parts[i] = scan.run(i * kPartSize);
    };
    runInParallel(scanSome, scanSome);
    return parts;
}

}  // namespace

std::vector<MboxEntry> indexMbox(const MailFile& file) {
    std::vector<MboxEntry> entries;
    for (Part& part : scanParts(file)) {
        if (part.doubtfulBefore && !entries.empty())
            entries.back().doubtful = true;
        entries.insert(entries.end(), part.entries.begin(), part.entries.end());
        part = {};
    }
    std::uint64_t end = file.size();
    for (std::size_t i = entries.size(); i-- > 0; end = entries[i].offset)
        entries[i].end = end;
    std::erase_if(entries, [](const MboxEntry& entry) { return entry.expunged; });
    return entries;
}

}  // namespace pelk
