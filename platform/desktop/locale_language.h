#pragma once
// Order and letter case of the user's locale, from the desktop's Unicode tables.

#include <array>
#include <memory>
#include <string>

#include "platform/language.h"

class QCollator;

namespace pelk {

class LocaleLanguage : public Language {
 public:
    /// Uses the locale of the user's environment. "C" and "POSIX" have no alphabet and are treated
    /// as English.
    LocaleLanguage();
    /// `name` is a locale such as "sv_SE".
    explicit LocaleLanguage(const std::string& name);
    ~LocaleLanguage() override;

    std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const override;
    bool startsWith(std::string_view text, std::string_view start) const override;
    std::string lowerCase(std::string_view text) const override;
    std::string folded(std::string_view text) const override;

 private:
    /// Two equal collators, because threads cannot share one.
    std::array<std::unique_ptr<QCollator>, 2> collators_;
};

}  // namespace pelk
