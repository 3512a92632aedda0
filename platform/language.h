#pragma once
// Alphabetical order and letter case.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// Comparisons ignore letter case. Text is UTF-8; invalid bytes are accepted.
class Language {
 public:
    virtual ~Language() = default;

    /// Returns the positions of `texts` in the alphabetical order of the user's locale: element 0
    /// is the position of the text that comes first. Equal texts keep their order.
    virtual std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const = 0;

    /// Whether `text` starts with `start`, ignoring letter case.
    virtual bool startsWith(std::string_view text, std::string_view start) const = 0;

    /// Returns the text in lower case, by rules that do not depend on the locale: keys that were
    /// stored under one locale are found under another.
    virtual std::string lowerCase(std::string_view text) const = 0;

    /// Returns the text without case and accents, by rules that do not depend on the locale, for
    /// searches: "Zoë" and "ZOE" give "zoe", "Straße" and "STRASSE" give "strasse". Compatible
    /// characters become plain ones (Unicode's form KD), and `withoutAccents` says what counts as
    /// an accent. Each part of a text that is not UTF-8 becomes characters that no key types.
    virtual std::string folded(std::string_view text) const = 0;
};

}  // namespace pelk
