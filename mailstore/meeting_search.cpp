#include "mailstore/meeting_search.h"

#include <algorithm>
#include <string>
#include <vector>

#include "mailstore/line_reader.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// Enough for the header of any part and for the beginning of a calendar, where its method stands.
constexpr std::size_t kMaxText = 64UL << 10;
// What is nested deeper is not looked into.
constexpr std::size_t kMaxDepth = 100;

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

bool isAttachment(const MessageHeader& header) {
    const std::string value = header.first("Content-Disposition");
    return equalsIgnoringCase(trimmed(value.substr(0, value.find(';'))), "attachment");
}

/// A calendar that is sent to be answered, or as an answer, and not to be read.
bool isMeetingMethod(std::string_view method) {
    return !method.empty() && !equalsIgnoringCase(method, "PUBLISH");
}

/// The value of the METHOD property, or empty text.
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

/// Walks over the parts of a message. Only the boundaries of the parts around the current line are
/// held, and the text of one part's header or calendar.
class MeetingSearch {
 public:
    bool run(const MessagePlace& place, const MessageHeader& header, const ContentType& type) {
        enter(header, type);
        if (part_ == Part::Other && boundaries_.empty())
            return found_;
        LineReader lines(place, header.length());
        // The empty line behind the header.
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

    /// The innermost of the boundaries that match counts.
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

    /// Begins the body of a part.
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

    /// The same for a part whose header has been read.
    void enterPart() {
        const MessageHeader header(std::move(text_));
        enter(header, ContentType(header));
    }

    /// Ends the body of a part, or the header of one that has no body.
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

bool isMeeting(const MessagePlace& place, const MessageHeader& header, const ContentType& type) {
    return MeetingSearch().run(place, header, type);
}

}  // namespace pelk
