#include "mailstore/address_scanner.h"

#include <algorithm>

namespace pelk {
namespace {

// The distance, in bytes, within which a construct must end.
constexpr std::size_t kLookAhead = 400;

// Every character with a meaning in some context.
constexpr std::string_view kSpecial = ",;:<>(\"[=";

/// Returns the length of the quoted string at the start of `text`, quotes included, or 0 if it is
/// not closed.
std::size_t quotedLength(std::string_view text) {
    for (std::size_t i = 1; i < text.size(); ++i)
        if (text[i] == '\\')
            ++i;
        else if (text[i] == '"')
            return i + 1;
    return 0;
}

/// Returns the length of the comment at the start of `text`, parentheses included, or 0 if it is
/// not closed. Comments nest.
std::size_t commentLength(std::string_view text) {
    std::size_t depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\\')
            ++i;
        else if (text[i] == '(')
            ++depth;
        else if (text[i] == ')' && --depth == 0)
            return i + 1;
    return 0;
}

/// Returns the length of the encoded word "=?charset?Q?text?=" at the start of `text`, or 0. Its
/// text may hold characters that end an entry elsewhere, because many programs forget to encode
/// them.
std::size_t encodedWordLength(std::string_view text) {
    text = text.substr(0, kLookAhead);
    if (!text.starts_with("=?"))
        return 0;
    const std::size_t charsetEnd = text.find_first_of("? ,;<>\"", 2);
    if (charsetEnd == std::string_view::npos || charsetEnd + 2 >= text.size() ||
        std::string_view("bBqQ").find(text[charsetEnd + 1]) == std::string_view::npos ||
        text[charsetEnd] != '?' || text[charsetEnd + 2] != '?')
        return 0;
    const std::size_t end = text.find("?=", charsetEnd + 3);
    return end == std::string_view::npos ? 0 : end + 2;
}

}  // namespace

bool hasAtSign(std::string_view text) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '"')
            quoted = !quoted;
        else if (quoted && text[i] == '\\')
            ++i;
        else if (!quoted && text[i] == '@')
            return true;
    return false;
}

std::optional<AddressEntry> AddressScanner::next() {
    if (at_ >= field_.size())
        return std::nullopt;
    AddressEntry entry;
    while (at_ < field_.size() && !step(entry)) {
    }
    return entry;
}

bool AddressScanner::step(AddressEntry& entry) {
    switch (field_[at_]) {
        case ',':
        case ';':
            ++at_;
            return true;
        case ':':
            // A colon ends the name of a group, or "mailto".
            ++at_;
            if (entry.bracketed || hasAtSign(entry.words))
                return true;
            entry = {};
            return false;
        case '<':
            if (entry.bracketed)
                return true;
            ++at_;
            entry.bracketed = takeBracketed();
            entry.words += ' ';
            return false;
        case '>':
            ++at_;
            entry.words += ' ';
            return false;
        case '(':
            if (const std::string_view comment = takeComment(); !comment.empty()) {
                entry.comment = comment.substr(1, comment.size() - 2);
                entry.words += ' ';
                return false;
            }
            break;
        case '"':
            entry.words += takeQuoted();
            return false;
        case '[':
            entry.words += takeLiteral(entry.words);
            return false;
        case '=':
            entry.words += takeEncodedWord();
            return false;
        default:
            break;
    }
    entry.words += takePlain();
    return false;
}

std::string_view AddressScanner::take(std::size_t length) {
    const std::string_view text = field_.substr(at_, length);
    at_ += text.size();
    return text;
}

std::string_view AddressScanner::takePlain() {
    const std::size_t end = std::min(field_.find_first_of(kSpecial, at_ + 1), field_.size());
    return take(end - at_);
}

std::string_view AddressScanner::takeQuoted() {
    const std::size_t length = quotesClose_ ? quotedLength(field_.substr(at_)) : 0;
    if (length == 0) {
        quotesClose_ = false;
        ++at_;
        return {};
    }
    return take(length);
}

std::string_view AddressScanner::takeComment() {
    const std::size_t length = commentsClose_ ? commentLength(field_.substr(at_)) : 0;
    commentsClose_ = length != 0;
    return take(length);
}

std::string_view AddressScanner::takeLiteral(const std::string& before) {
    // An address like jane@[IPv6:::1] holds colons.
    const std::size_t end =
        before.ends_with('@') ? field_.substr(at_, kLookAhead).find(']') : std::string_view::npos;
    return take(end == std::string_view::npos ? 1 : end + 1);
}

std::string_view AddressScanner::takeEncodedWord() {
    return take(std::max<std::size_t>(encodedWordLength(field_.substr(at_)), 1));
}

void AddressScanner::passRoute() {
    const std::string_view ahead = field_.substr(at_, kLookAhead);
    if (ahead.starts_with('@')) {
        const std::size_t end = ahead.find_first_of(":<>");
        if (end != std::string_view::npos && ahead[end] == ':')
            at_ += end + 1;
    }
}

std::string AddressScanner::takeBracketed() {
    at_ = std::min(field_.find_first_not_of(" <", at_), field_.size());
    passRoute();
    std::string content;
    while (at_ < field_.size()) {
        const char c = field_[at_];
        if (c == '>') {
            ++at_;
            break;
        }
        // The closing bracket is missing.
        if (c == '<' || c == ',' || c == ';')
            break;
        if (c == '"')
            content += takeQuoted();
        else if (c != '(' || takeComment().empty())
            content += takePlain();
    }
    return content;
}

}  // namespace pelk
