#pragma once
// Makes text safe for a terminal. Names, addresses, paths and messages come from strangers, and
// terminals interpret control characters: all output for people goes through `Line`.

#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

namespace pelk {

/// Returns the text as one line that a terminal shows literally: control characters become spaces;
/// invalid UTF-8 and characters that change the writing direction become U+FFFD.
std::string terminalText(std::string_view text);

/// Escapes DEL, the C1 control characters and those that change the writing direction, in the
/// syntax of the document, so that no information is lost.
std::string escapedForJson(std::string_view json);
std::string escapedForXml(std::string_view xml);

/// A line for people. The destructor writes it and throws when writing fails, so that a lack of
/// memory is reported instead of ending the program.
class Line {
 public:
    explicit Line(std::ostream& out) : out_(out) {}
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() noexcept(false) { out_ << terminalText(text_.str()) << '\n'; }

    template <typename Value>
    Line& operator<<(const Value& value) {
        text_ << value;
        return *this;
    }

 private:
    std::ostream& out_;
    std::ostringstream text_;
};

/// Prints a message to standard error.
void tell(std::string_view message);

}  // namespace pelk
