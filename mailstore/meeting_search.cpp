#include "mailstore/meeting_search.h"

#include <algorithm>
#include <limits>
#include <string>

#include "mailstore/body_parts.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// In bytes: enough for the header of a part and for the start of a calendar, which has the method.
constexpr std::size_t kMaxText = 64UL << 10;

class MeetingSearch : public BodyParts {
 public:
    MeetingSearch() : BodyParts(kMaxText) {}
    bool found() const { return found_; }

 private:
    bool partBegins(const MessageHeader& header, const ContentType& type) override {
        if (!type.is("text", "calendar") || isAttachment(header))
            return false;
        const std::string method(trimmed(type.parameter("method")));
        note(isMeetingMethod(method));
        encoding_ = header.first("Content-Transfer-Encoding");
        return method.empty();
    }

    void partEnds(const std::string& text, bool) override {
        note(isMeetingMethod(methodOf(decodeContent(encoding_, text))));
    }

    void note(bool found) {
        found_ = found;
        if (found)
            stop();
    }

    bool found_ = false;
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
    MeetingSearch search;
    search.run(place, header, type, std::numeric_limits<std::uint64_t>::max());
    return search.found();
}

}  // namespace pelk
