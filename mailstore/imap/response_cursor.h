#pragma once
// Reads the words of a response (RFC 3501, 9).

#include <cstddef>
#include <string>
#include <string_view>

namespace pelk {

/// Every function moves on or throws `BrokenAnswer` if the text is not what it expects.
class ResponseCursor {
 public:
    /// `response` must outlive this.
    explicit ResponseCursor(std::string_view response) : rest_(response) {}

    /// Returns the next character; NUL at the end.
    char next() const { return rest_.empty() ? '\0' : rest_.front(); }
    /// Skips the character if it is the next one, and returns whether it was.
    bool take(char c);
    void require(char c);
    void skipBlanks();

    /// Returns the characters, at least one, up to the first of `ends`.
    std::string_view atom(std::string_view ends = " ()\r\n");
    /// Skips "[...]", and "<...>" behind it.
    void skipSection();
    /// Returns a quoted string or a literal; empty text for NIL.
    std::string string();
    /// Skips a string or a list in parentheses.
    void skipValue();
    /// Skips the rest of a list whose "(" has been read, with its ")".
    void skipRestOfList();

 private:
    std::string quoted();
    std::string_view literal();
    void skipString();
    std::string_view takeThrough(char end);

    std::string_view rest_;
};

}  // namespace pelk
