#include "mailstore/body_parts.h"

#include <utility>

#include "mailstore/line_reader.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// Parts nested deeper are ignored.
constexpr std::size_t kMaxDepth = 100;

}  // namespace

bool isAttachment(const MessageHeader& header) {
    const std::string value = header.first("Content-Disposition");
    return equalsIgnoringCase(trimmed(value.substr(0, value.find(';'))), "attachment");
}

void BodyParts::run(const MessagePlace& place, const MessageHeader& header, const ContentType& type,
                    std::uint64_t mostBytes) {
    enter(header, type);
    if (stopped_ || (part_ == Part::Other && boundaries_.empty()))
        return;
    LineReader lines(place, header.length());
    // Skip the empty line after the header.
    lines.next();
    std::uint64_t bytes = 0;
    for (auto line = lines.next(); line && !stopped_ && bytes < mostBytes; line = lines.next()) {
        bytes += line->size() + 1;
        take(*line);
    }
    leave();
}

void BodyParts::take(std::string_view line) {
    if (line.starts_with("--") && takeBoundary(line))
        return;
    if (part_ == Part::Header && line.empty())
        enterPart();
    else if (part_ != Part::Other && text_.size() < mostText_)
        text_.append(line).push_back('\n');
    else
        isCut_ = true;
}

/// Handles `line` if it is a boundary. The innermost matching boundary counts.
bool BodyParts::takeBoundary(std::string_view line) {
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
void BodyParts::enter(const MessageHeader& header, const ContentType& type) {
    part_ = Part::Other;
    text_.clear();
    isCut_ = false;
    if (type.is("multipart", "*")) {
        const std::string boundary(trimmed(type.parameter("boundary")));
        if (!boundary.empty() && boundaries_.size() < kMaxDepth)
            boundaries_.push_back("--" + boundary);
    } else if (partBegins(header, type)) {
        part_ = Part::Wanted;
    }
}

/// Starts the body of a part whose header is in `text_`.
void BodyParts::enterPart() {
    const MessageHeader header(std::move(text_));
    enter(header, ContentType(header));
}

/// Ends the body of a part, or the header of a part without a body.
void BodyParts::leave() {
    if (stopped_)
        return;
    if (part_ == Part::Wanted)
        partEnds(text_, isCut_);
    else if (part_ == Part::Header)
        enterPart();
    text_.clear();
    isCut_ = false;
}

}  // namespace pelk
