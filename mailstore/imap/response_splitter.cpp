#include "mailstore/imap/response_splitter.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "mailstore/imap/answer_guard.h"
#include "mailstore/imap/imap_faults.h"

namespace pelk {

void ResponseSplitter::add(std::string_view bytes) {
    bytes_.erase(0, begin_);
    searched_ -= std::exchange(begin_, 0);
    bytes_ += bytes;
}

std::optional<std::string_view> ResponseSplitter::next() {
    for (;;) {
        const std::size_t end = bytes_.find('\n', searched_);
        if (end == std::string::npos) {
            searched_ = std::max(searched_, bytes_.size());
            return std::nullopt;
        }
        searched_ = end + 1;
        if (const std::optional<std::size_t> literal = literalBefore(end)) {
            searched_ += *literal;
            continue;
        }
        const std::size_t begin = std::exchange(begin_, searched_);
        return std::string_view(bytes_).substr(begin, begin_ - begin);
    }
}

/// Only responses about a message, such as "* 12 FETCH", have literals. Free text may look like
/// one.
std::optional<std::size_t> ResponseSplitter::literalBefore(std::size_t lineEnd) const {
    std::string_view line = std::string_view(bytes_).substr(begin_, lineEnd - begin_);
    if (line.size() < 3 || !line.starts_with("* ") || line[2] < '0' || line[2] > '9')
        return std::nullopt;
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (!line.ends_with('}'))
        return std::nullopt;
    const std::size_t digit = line.find_last_not_of("0123456789", line.size() - 2) + 1;
    if (digit == 0 || line[digit - 1] != '{' || digit + 1 == line.size())
        return std::nullopt;
    std::size_t size = 0;
    const auto read = std::from_chars(&line[digit], line.data() + line.size() - 1, size);
    if (read.ec != std::errc() || size > AnswerGuard::kMostLiteral)
        throw BrokenAnswer("The mail server's answer is refused: a part of it is too large.");
    return size;
}

std::string ResponseSplitter::takeRest() {
    std::string rest = bytes_.substr(begin_);
    bytes_.clear();
    begin_ = searched_ = 0;
    return rest;
}

}  // namespace pelk
