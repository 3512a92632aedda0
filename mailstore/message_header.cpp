#include "mailstore/message_header.h"

#include <algorithm>
#include <array>
#include <optional>

#include "mailstore/mail_text.h"

namespace pelk {
namespace {

// In bytes. Most headers fit the first read. A header longer than the last is cut.
constexpr std::array<std::size_t, 4> kReadSizes = {8UL << 10, 64UL << 10, 256UL << 10, 1UL << 20};

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == 0x7F;
}

/// Returns the offset of the first empty line. The search starts at the line that begins at `from`.
std::optional<std::size_t> findEmptyLine(std::string_view text, std::size_t from) {
    while (from < text.size()) {
        if (text[from] == '\n' || text.substr(from, 2) == "\r\n")
            return from;
        const std::size_t end = text.find('\n', from);
        if (end == std::string_view::npos)
            break;
        from = end + 1;
    }
    return std::nullopt;
}

std::string unfolded(std::string_view raw) {
    const std::size_t begin = raw.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return {};
    raw = raw.substr(begin, raw.find_last_not_of(" \t\r\n") + 1 - begin);
    std::string text;
    text.reserve(raw.size());
    for (;;) {
        const auto control = std::find_if(raw.begin(), raw.end(), isControl);
        const auto plain = static_cast<std::size_t>(control - raw.begin());
        text.append(raw, 0, plain);
        if (control == raw.end())
            return text;
        if (*control == '\t')
            text += ' ';
        raw.remove_prefix(plain + 1);
    }
}

}  // namespace

MessageHeader::MessageHeader(std::string text) : text_(std::move(text)) {
    const std::string_view all = text_;
    std::size_t begin = 0;
    while (begin < all.size()) {
        const std::size_t end = std::min(all.find('\n', begin), all.size() - 1) + 1;
        addLine(all.substr(begin, end - begin));
        begin = end;
    }
}

void MessageHeader::addLine(std::string_view line) {
    if (isBlank(line.front())) {
        if (!fields_.empty()) {
            std::string_view& value = fields_.back().value;
            value = {value.data(),
                     static_cast<std::size_t>(line.data() - value.data()) + line.size()};
        }
        return;
    }
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
        // A field without a name takes the continuation lines that follow.
        fields_.push_back({{}, line});
        return;
    }
    std::string_view name = line.substr(0, colon);
    name = name.substr(0, name.find_last_not_of(" \t") + 1);
    fields_.push_back({name, line.substr(colon + 1)});
}

std::vector<std::string> MessageHeader::all(std::string_view name) const {
    std::vector<std::string> values;
    for (const Field& field : fields_)
        if (equalsIgnoringCase(field.name, name))
            values.push_back(unfolded(field.value));
    return values;
}

std::string MessageHeader::first(std::string_view name) const {
    for (const Field& field : fields_)
        if (equalsIgnoringCase(field.name, name))
            return unfolded(field.value);
    return {};
}

MessageHeader readHeader(const MessagePlace& place) {
    std::string text;
    std::optional<std::size_t> end;
    for (const std::size_t size : kReadSizes) {
        const std::size_t had = text.size();
        text.resize(std::min<std::uint64_t>(size, place.length));
        if (place.file->read(place.offset + had, text.data() + had, text.size() - had) <
            text.size() - had)
            place.file->failChanged();
        // The previous read may have ended inside a line.
        const std::size_t lineEnd = had == 0 ? std::string::npos : text.rfind('\n', had - 1);
        end = findEmptyLine(text, lineEnd + 1);
        if (end || text.size() == place.length)
            break;
    }
    if (place.inMbox && !text.starts_with(kFromLine))
        place.file->failChanged();
    if (end) {
        text.resize(*end);
    } else if (text.size() < place.length) {
        // Drop the last line, which is incomplete.
        text.resize(text.rfind('\n') + 1);
    }
    return MessageHeader(std::move(text));
}

}  // namespace pelk
