#pragma once
// Splits an address field into its entries.

#include <optional>
#include <string>
#include <string_view>

namespace pelk {

/// One entry of an address field, not decoded.
struct AddressEntry {
    /// The text outside of angle brackets and comments, with its quotes.
    std::string words;
    /// The last comment, without its parentheses.
    std::string comment;
    /// The text in angle brackets, if the entry has any.
    std::optional<std::string> bracketed;
};

/// Reads a field in one pass. After an unclosed quote or parenthesis, the scanner treats all quotes
/// or parentheses as plain characters, so it reads no text more than twice.
class AddressScanner {
 public:
    /// `field` must outlive the scanner.
    explicit AddressScanner(std::string_view field) : field_(field) {}

    /// Returns the next entry, which may be empty, or nothing at the end of the field.
    std::optional<AddressEntry> next();

 private:
    /// Takes the character or construct at the current position. Returns true if it ends the entry.
    bool step(AddressEntry& entry);
    std::string takeBracketed();
    /// Takes a quoted string with its quotes.
    std::string_view takeQuoted();
    std::string_view takeComment();
    std::string_view takeLiteral(const std::string& before);
    std::string_view takeEncodedWord();
    void passRoute();
    /// Takes one character and the plain ones that follow.
    std::string_view takePlain();
    std::string_view take(std::size_t length);

    std::string_view field_;
    std::size_t at_ = 0;
    bool quotesClose_ = true;
    bool commentsClose_ = true;
};

/// Returns whether `text` holds an `@` outside of quotes.
bool hasAtSign(std::string_view text);

}  // namespace pelk
