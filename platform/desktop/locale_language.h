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
    /// The locale that the user's environment names. One without an alphabet ("C", "POSIX") is
    /// taken for English.
    LocaleLanguage();
    /// The locale of that name, such as "sv_SE".
    explicit LocaleLanguage(const std::string& name);
    ~LocaleLanguage() override;

    std::vector<std::size_t> alphabeticalOrder(
        const std::vector<std::string_view>& texts) const override;
    bool startsWith(std::string_view text, std::string_view start) const override;
    std::string lowerCase(std::string_view text) const override;

 private:
    /// Two that are alike, as one is not for several threads.
    std::array<std::unique_ptr<QCollator>, 2> collators_;
};

}  // namespace pelk
