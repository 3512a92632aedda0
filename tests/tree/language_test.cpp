// Alphabetical order and letter case on the desktop, in locales other than the tests' usual one.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/desktop/locale_language.h"

namespace pelk {
namespace {

std::string inOrder(const char* locale, const std::vector<std::string_view>& texts) {
    std::string all;
    for (const std::size_t position : LocaleLanguage(locale).alphabeticalOrder(texts))
        (all += texts[position]) += ' ';
    return all;
}

TEST(LocaleLanguage, OrdersForPeopleInTheirLocale) {
    EXPECT_EQ(inOrder("sv_SE", {"Ärla", "Zoe", "Åsa", "ann"}), "ann Zoe Åsa Ärla ");
    // A locale without an alphabet is taken for English.
    for (const char* name : {"C", "POSIX", "C.UTF-8", ""})
        EXPECT_EQ(inOrder(name, {"Zoe", "ann", "Ärla", "Bob"}), "ann Ärla Bob Zoe ") << name;
    const auto order =
        LocaleLanguage("en_US").alphabeticalOrder(std::vector<std::string_view>(100, "same"));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(LocaleLanguage, LowerCaseIsTheSameInEveryLocale) {
    for (const char* name : {"tr_TR", "C"})
        for (const auto& [text, lower] :
             {std::pair("J.SMITH@IN", "j.smith@in"), {"ÅSA ΣI ı", "åsa σi ı"}})
            EXPECT_EQ(LocaleLanguage(name).lowerCase(text), lower) << name;
}

}  // namespace
}  // namespace pelk
