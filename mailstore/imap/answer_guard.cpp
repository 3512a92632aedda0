#include "mailstore/imap/answer_guard.h"

#include <algorithm>

#include "mailstore/imap/imap_faults.h"

namespace pelk {
namespace {

[[noreturn]] void refuse(const char* what) {
    throw BrokenAnswer(std::string("The mail server's answer is refused: ") + what + ".");
}

}  // namespace

void AnswerGuard::take(std::string_view bytes) {
    answer_ += bytes.size();
    if (answer_ > kMostAnswer)
        refuse("it is too long");
    while (!bytes.empty()) {
        std::size_t taken = 1;
        if (part_ == Part::Literal) {
            taken = static_cast<std::size_t>(std::min<std::uint64_t>(literal_, bytes.size()));
            literal_ -= taken;
            if (literal_ == 0)
                part_ = Part::Line;
        } else {
            takeLine(bytes.front());
        }
        bytes.remove_prefix(taken);
    }
}

void AnswerGuard::takeLine(char c) {
    if (line_ < start_.size())
        start_[line_] = c;
    if (++line_ > kMostLine)
        refuse("a line is too long");
    if (c == '\n') {
        endLine();
    } else if (part_ == Part::Escaped) {
        part_ = Part::Quoted;
    } else if (part_ == Part::Quoted) {
        part_ = c == '\\' ? Part::Escaped : c == '"' ? Part::Line : Part::Quoted;
    } else {
        takeCount(c);
        if (c == '"')
            part_ = Part::Quoted;
        else if (c == '(' && ++depth_ > kDeepest)
            refuse("it has too many nested parentheses");
        else if (c == ')' && depth_ > 0)
            --depth_;
    }
}

void AnswerGuard::takeCount(char c) {
    if (c == '{') {
        count_ = Count::Digits;
        literal_ = 0;
    } else if (count_ == Count::Digits && c >= '0' && c <= '9') {
        literal_ = std::min<std::uint64_t>(literal_ * 10 + static_cast<unsigned>(c - '0'),
                                           kMostLiteral + 1);
    } else if (count_ == Count::Digits && c == '}') {
        count_ = Count::Closed;
    } else if (c != '\r') {
        count_ = Count::None;
    }
}

/// Free text may look like a literal, but follows only a status ("* OK", "* NO", "* BAD", "* BYE",
/// "* PREAUTH") or the tag of a command. Literals occur in lines such as "* 12 FETCH" and "* LIST".
bool AnswerGuard::mayHoldLiteral() const {
    return start_[0] == '*' && start_[1] == ' ' &&
           ((start_[2] >= '0' && start_[2] <= '9') || start_[2] == 'L' || start_[2] == 'l');
}

void AnswerGuard::endLine() {
    if (part_ == Part::Line && count_ == Count::Closed && mayHoldLiteral()) {
        if (literal_ > kMostLiteral)
            refuse("a part of it is too large");
        part_ = literal_ > 0 ? Part::Literal : Part::Line;
    } else {
        part_ = Part::Line;
        line_ = 0;
        depth_ = 0;
    }
    count_ = Count::None;
}

}  // namespace pelk
