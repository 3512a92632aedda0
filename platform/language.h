#pragma once
// Text as people read it: order, letter case.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pelk {

/// Comparisons ignore letter case. All text is UTF-8; bytes that are not are taken as they come.
class Language {
 public:
    virtual ~Language() = default;

    /// The positions of `texts` in alphabetical order of the user's locale: element 0 of the
    /// result is the position of the text that comes first. Equal texts keep their order.
    virtual std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const = 0;

    /// True when `text` starts with `start`, both read without regard to letter case.
    virtual bool startsWith(std::string_view text, std::string_view start) const = 0;

    /// The text in lower case, by rules that are the same in every locale, so that what is stored
    /// under it is found again after the locale has changed.
    virtual std::string lowerCase(std::string_view text) const = 0;
};

}  // namespace pelk
