#include "mailstore/meeting_search.h"

#include <algorithm>
#include <string>
#include <vector>

#include "mailstore/line_reader.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// In bytes: enough for the header of a part and for the start of a calendar, which has the method.
constexpr std::size_t kMaxText = 64UL << 10;
// Parts nested deeper are ignored.
constexpr std::size_t kMaxDepth = 100;

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

bool isAttachment(const MessageHeader& header) {
    const std::string value = header.first("Content-Disposition");
    return equalsIgnoringCase(trimmed(value.substr(0, value.find(';'))), "attachment");
}

/// Reads the parts of a message in one pass. Keeps only the boundaries of the enclosing parts and
/// the text of one header or calendar.
class MeetingSearch {
 public:
    bool run(const MessagePlace& place, const MessageHeader& header, const ContentType& type) {
        enter(header, type);
        if (part_ == Part::Other && boundaries_.empty())
            return found_;
        LineReader lines(place, header.length());
        // Skip the empty line after the header.
        lines.next();
        for (auto line = lines.next(); line && !found_; line = lines.next())
            take(*line);
        leave();
        return found_;
    }

 private:
    enum class Part { Header, Calendar, Other };

    void take(std::string_view line) {
        if (line.starts_with("--") && takeBoundary(line))
            return;
        if (part_ == Part::Header && line.empty())
            enterPart();
        else if (part_ != Part::Other && text_.size() < kMaxText)
            text_.append(line).push_back('\n');
    }

    /// Handles `line` if it is a boundary. The innermost matching boundary counts.
    bool takeBoundary(std::string_view line) {
        line = trimmed(line);
        for (std::size_t i = boundaries_.size(); i-- > 0;) {
            const std::string& boundary = boundaries_[i];
            if (!line.starts_with(boundary))
                continue;
            const std::string_view rest = line.substr(boundary.size());
            if (!rest.empty() && rest != "--")
                continue;
            leave();
            boundaries_.resize(rest.empty() ? i + 1 : i);
            part_ = rest.empty() ? Part::Header : Part::Other;
            return true;
        }
        return false;
    }

    /// Starts the body of a part with this header.
    void enter(const MessageHeader& header, const ContentType& type) {
        part_ = Part::Other;
        text_.clear();
        if (type.is("multipart", "*")) {
            const std::string boundary(trimmed(type.parameter("boundary")));
            if (!boundary.empty() && boundaries_.size() < kMaxDepth)
                boundaries_.push_back("--" + boundary);
        } else if (type.is("text", "calendar") && !isAttachment(header)) {
            const std::string method(trimmed(type.parameter("method")));
            found_ = isMeetingMethod(method);
            part_ = method.empty() ? Part::Calendar : Part::Other;
            encoding_ = header.first("Content-Transfer-Encoding");
        }
    }

    /// Starts the body of a part whose header is in `text_`.
    void enterPart() {
        const MessageHeader header(std::move(text_));
        enter(header, ContentType(header));
    }

    /// Ends the body of a part, or the header of a part without a body.
    void leave() {
        if (part_ == Part::Calendar)
            found_ = isMeetingMethod(methodOf(decodeContent(encoding_, text_)));
        else if (part_ == Part::Header)
            enterPart();
        text_.clear();
    }

    Part part_ = Part::Other;
    bool found_ = false;
    std::vector<std::string> boundaries_;
    std::string text_;
    std::string encoding_;
};

}  // namespace

bool isMeetingMethod(std::string_view method) {
    return !method.empty() && !equalsIgnoringCase(method, "PUBLISH");
}

std::string_view methodOf(std::string_view calendar) {
    while (!calendar.empty()) {
        const std::string_view line = calendar.substr(0, calendar.find('\n'));
        const std::size_t colon = line.find(':');
        if (colon != std::string_view::npos &&
            equalsIgnoringCase(line.substr(0, line.find_first_of(":;")), "METHOD"))
            return trimmed(line.substr(colon + 1));
        calendar.remove_prefix(std::min(line.size() + 1, calendar.size()));
    }
    return {};
}

bool isMeeting(const MessagePlace& place, const MessageHeader& header, const ContentType& type) {
    return MeetingSearch().run(place, header, type);
}

}  // namespace pelk
