// Alphabetical order and letter case on the desktop.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/desktop/locale_language.h"

namespace pelk {

namespace {

std::string inOrder(const Language& language, const std::vector<std::string_view>& texts) {
    std::string all;
    for (const std::size_t position : language.alphabeticalOrder(texts)) {
        all += texts[position];
        all += ' ';
    }
    return all;
}

TEST(LocaleLanguage, OrdersForPeopleInTheirLocale) {
    EXPECT_EQ(inOrder(LocaleLanguage("en_US"), {"bob", "Zoe", "Ärla", "ann", "Bea", "", "zeta"}),
              " ann Ärla Bea bob zeta Zoe ");
    EXPECT_EQ(inOrder(LocaleLanguage("sv_SE"), {"Ärla", "Zoe", "Åsa", "ann"}), "ann Zoe Åsa Ärla ");
    EXPECT_EQ(inOrder(LocaleLanguage("en_US"), {"a10", "a9", "a1"}), "a1 a10 a9 ");
}

TEST(LocaleLanguage, KeepsTheOrderOfEqualsAndSurvivesStrayBytes) {
    const LocaleLanguage language("en_US");
    EXPECT_EQ(inOrder(language, {"ANN", "bob", "ann", "Ann"}), "ANN ann Ann bob ");
    const auto order = language.alphabeticalOrder(std::vector<std::string_view>(100, "same"));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(language.alphabeticalOrder({"\xff\xfe", "a", "\xff\xfe"}).size(), 3U);
    EXPECT_TRUE(language.alphabeticalOrder({}).empty());
}

TEST(LocaleLanguage, TakesALocaleWithoutAnAlphabetForEnglish) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", ""})
        EXPECT_EQ(inOrder(LocaleLanguage(name), {"Zoe", "ann", "Ärla", "Bob"}), "ann Ärla Bob Zoe ")
            << name;
}

TEST(LocaleLanguage, LowerCaseIsTheSameInEveryLocale) {
    for (const char* name : {"en_US", "tr_TR", "C"}) {
        const LocaleLanguage language(name);
        EXPECT_EQ(language.lowerCase("J.Smith@IN.Example[@Z`"), "j.smith@in.example[@z`");
        EXPECT_EQ(language.lowerCase("ÅSA ΣΣ 𐐀 ı ß €"), "åsa σσ 𐐨 ı ß €");
        EXPECT_EQ(language.lowerCase("AB\xff\xc5 Å"), "ab\xff\xc5 Å") << "not UTF-8";
        EXPECT_EQ(language.lowerCase(""), "");
    }
}

}  // namespace

}  // namespace pelk
