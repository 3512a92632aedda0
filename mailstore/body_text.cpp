#include "mailstore/body_text.h"

#include <memory>
#include <utility>

#include "mailstore/body_parts.h"
#include "mailstore/html_text.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// In bytes. Encoded text may be a third longer than the text itself.
constexpr std::size_t kMaxText = 256UL << 10;
// Text that comes after this much of other parts is not found.
constexpr std::uint64_t kMaxBody = 32UL << 20;

struct Unref {
    void operator()(GMimeFilter* filter) const { g_object_unref(filter); }
};

/// Converts from the character set, with a "?" for what is invalid. If the set is unknown, takes
/// the text for UTF-8 or Windows-1252.
std::string fromCharset(const std::string& content, const std::string& charset) {
    readyGMime();
    if (charset.empty() || equalsIgnoringCase(charset, "utf-8") ||
        equalsIgnoringCase(charset, "us-ascii"))
        return toUtf8(content);
    const std::unique_ptr<GMimeFilter, Unref> filter(
        g_mime_filter_charset_new(charset.c_str(), "UTF-8"));
    if (!filter)
        return toUtf8(content);
    std::string copy = content;
    char* converted = nullptr;
    std::size_t length = 0;
    std::size_t room = 0;
    g_mime_filter_complete(filter.get(), copy.data(), copy.size(), 0, &converted, &length, &room);
    return {converted, length};
}

class TextSearch : public BodyParts {
 public:
    TextSearch() : BodyParts(kMaxText) {}
    BodyText take() { return std::move(found_); }

 private:
    bool partBegins(const MessageHeader& header, const ContentType& type) override {
        isHtml_ = type.is("text", "html");
        if (isAttachment(header) || !(isHtml_ ? found_.text.empty() : type.is("text", "plain")))
            return false;
        encoding_ = header.first("Content-Transfer-Encoding");
        charset_ = type.parameter("charset");
        return true;
    }

    void partEnds(const std::string& text, bool isCut) override {
        const std::string content = fromCharset(decodeContent(encoding_, text), charset_);
        const std::string lines = cleanLines(isHtml_ ? textOfHtml(content) : content);
        if (trimmed(lines).empty())
            return;
        found_ = {lines, isCut};
        if (!isHtml_)
            stop();
    }

    bool isHtml_ = false;
    std::string encoding_;
    std::string charset_;
    BodyText found_;
};

}  // namespace

BodyText readBodyText(const MessagePlace& place, const MessageHeader& header) {
    TextSearch search;
    search.run(place, header, ContentType(header), kMaxBody);
    return search.take();
}

}  // namespace pelk
