#pragma once
// Text on its way to a terminal. Names, addresses, paths and messages come from elsewhere, and a
// terminal obeys control characters: everything that people read goes through `Line`.

#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

namespace pelk {

/// The text as one line that a terminal shows and does not obey: control characters are blanks, and
/// what is not UTF-8 and every character that turns the direction of writing is U+FFFD.
std::string terminalText(std::string_view text);

/// UTF-8 in which the form of a document writes DEL, the C1 control characters and those that turn
/// the direction of writing as what they stand for, so that nothing is lost.
std::string escapedForJson(std::string_view json);
std::string escapedForXml(std::string_view xml);

/// A line for people, which is written when it is destroyed. That throws what writing throws, so
/// that lack of memory is told and does not end the program.
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

/// Tells the user something on standard error.
void tell(std::string_view message);

}  // namespace pelk
