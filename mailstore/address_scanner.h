#pragma once
// Cuts an address field into its entries.

#include <optional>
#include <string>
#include <string_view>

namespace pelk {

/// One entry of an address field, as it was written.
struct AddressEntry {
    /// Everything outside of angle brackets and comments, quotes kept.
    std::string words;
    /// The last comment, without its parentheses.
    std::string comment;
    /// What stands in angle brackets.
    std::optional<std::string> bracketed;
};

/// Walks once over a field. Quotes and parentheses that are never closed are taken as ordinary
/// characters from then on, so that no text is looked through more than twice.
class AddressScanner {
 public:
    /// `field` must outlive the scanner.
    explicit AddressScanner(std::string_view field) : field_(field) {}

    /// The next entry, which may be empty; nothing at the end.
    std::optional<AddressEntry> next();

 private:
    /// Takes the character or construct at the current place. True when it ended the entry.
    bool step(AddressEntry& entry);
    std::string takeBracketed();
    /// Takes a quoted text with its quotes.
    std::string_view takeQuoted();
    std::string_view takeComment();
    std::string_view takeLiteral(const std::string& before);
    std::string_view takeEncodedWord();
    void passRoute();
    /// Takes a character and all plain ones behind it.
    std::string_view takePlain();
    std::string_view take(std::size_t length);

    std::string_view field_;
    std::size_t at_ = 0;
    bool quotesClose_ = true;
    bool commentsClose_ = true;
};

/// Whether `text` holds an `@` outside of quotes.
bool hasAtSign(std::string_view text);

}  // namespace pelk
