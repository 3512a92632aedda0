#include "mailstore/imap/response_cursor.h"

#include <algorithm>
#include <charconv>

#include "mailstore/imap/imap_faults.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

[[noreturn]] void refuse() {
    throw BrokenAnswer("The mail server's answer cannot be read.");
}

}  // namespace

bool ResponseCursor::take(char c) {
    if (rest_.empty() || rest_.front() != c)
        return false;
    rest_.remove_prefix(1);
    return true;
}

void ResponseCursor::require(char c) {
    if (!take(c))
        refuse();
}

void ResponseCursor::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

std::string_view ResponseCursor::atom(std::string_view ends) {
    const std::string_view text = rest_.substr(0, rest_.find_first_of(ends));
    if (text.empty())
        refuse();
    rest_.remove_prefix(text.size());
    return text;
}

void ResponseCursor::skipSection() {
    takeThrough(']');
    if (next() == '<')
        takeThrough('>');
}

std::string ResponseCursor::string() {
    if (next() == '"')
        return quoted();
    if (next() == '{')
        return std::string(literal());
    if (!equalsIgnoringCase(atom(), "NIL"))
        refuse();
    return {};
}

std::string ResponseCursor::quoted() {
    require('"');
    std::string text;
    while (!take('"')) {
        take('\\');
        if (rest_.empty())
            refuse();
        text += rest_.front();
        rest_.remove_prefix(1);
    }
    return text;
}

std::string_view ResponseCursor::literal() {
    require('{');
    const std::string_view digits = takeThrough('}');
    std::size_t size = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), size);
    take('\r');
    require('\n');
    if (read.ec != std::errc() || read.ptr != digits.data() + digits.size() || size > rest_.size())
        refuse();
    const std::string_view text = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return text;
}

/// Returns the text before `end`.
std::string_view ResponseCursor::takeThrough(char end) {
    const std::string_view text = rest_.substr(0, rest_.find(end));
    if (text.size() == rest_.size())
        refuse();
    rest_.remove_prefix(text.size() + 1);
    return text;
}

void ResponseCursor::skipString() {
    if (next() == '"')
        quoted();
    else if (next() == '{')
        literal();
    else
        atom();
}

void ResponseCursor::skipValue() {
    if (take('('))
        skipRestOfList();
    else
        skipString();
}

void ResponseCursor::skipRestOfList() {
    for (std::size_t open = 1; open > 0;) {
        skipBlanks();
        if (take('('))
            ++open;
        else if (take(')'))
            --open;
        else
            skipString();
    }
}

}  // namespace pelk
