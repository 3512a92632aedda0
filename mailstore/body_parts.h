#pragma once
// Reads the body parts of a message in one pass (MIME, RFC 2046).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mailstore/content_type.h"
#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

/// Keeps only the boundaries of the enclosing parts and the text of one header or part, whatever
/// the message holds. Parts nested too deeply, and the parts of attached messages, are ignored.
class BodyParts {
 public:
    virtual ~BodyParts() = default;

    /// Reads the message, up to `mostBytes` of its body. `type` is the content type in `header`.
    /// Reads nothing if the message is a single part that is not wanted. Throws an `Error` if the
    /// file cannot be read.
    void run(const MessagePlace& place, const MessageHeader& header, const ContentType& type,
             std::uint64_t mostBytes);

 protected:
    /// Of a header or a part, at most about `mostText` bytes are kept.
    explicit BodyParts(std::size_t mostText) : mostText_(mostText) {}

    /// Told of a part that contains no other parts. Returns whether its text is wanted.
    virtual bool partBegins(const MessageHeader& header, const ContentType& type) = 0;
    /// Receives the text of a wanted part, still encoded. `isCut` says whether it had to be cut.
    virtual void partEnds(const std::string& text, bool isCut) = 0;
    /// Ends the reading.
    void stop() { stopped_ = true; }

 private:
    enum class Part { Header, Wanted, Other };

    void take(std::string_view line);
    bool takeBoundary(std::string_view line);
    void enter(const MessageHeader& header, const ContentType& type);
    void enterPart();
    void leave();

    const std::size_t mostText_;
    Part part_ = Part::Other;
    bool stopped_ = false;
    bool isCut_ = false;
    std::vector<std::string> boundaries_;
    std::string text_;
};

/// Whether the part is to be shown apart from the message (RFC 2183).
bool isAttachment(const MessageHeader& header);

}  // namespace pelk
