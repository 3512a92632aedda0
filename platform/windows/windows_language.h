#pragma once
// Order and letter case of the user's locale, from the tables of Windows.

#include <string>

#include "platform/language.h"

namespace pelk {

class WindowsLanguage : public Language {
 public:
    /// Uses the user's locale.
    WindowsLanguage();
    /// `locale` is a name such as "sv-SE".
    explicit WindowsLanguage(std::wstring locale) : locale_(std::move(locale)) {}

    std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const override;
    bool startsWith(std::string_view text, std::string_view start) const override;
    std::string lowerCase(std::string_view text) const override;
    std::string folded(std::string_view text) const override;

 private:
    std::wstring locale_;
};

}  // namespace pelk
