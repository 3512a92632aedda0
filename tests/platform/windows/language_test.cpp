#include <gtest/gtest.h>

#include "platform/windows/windows_language.h"

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

TEST(WindowsLanguage, ordersForPeopleInTheirLocale) {
    const WindowsLanguage english(L"en-US");
    EXPECT_EQ(inOrder(english, {"bob", "Zoe", "Ärla", "ann", "Bea", "", "zeta"}),
              " ann Ärla Bea bob zeta Zoe ");
    EXPECT_EQ(inOrder(english, {"a10", "a9", "a1"}), "a1 a10 a9 ");
    EXPECT_EQ(inOrder(english, {"ANN", "bob", "ann", "Ann"}), "ANN ann Ann bob ");
    EXPECT_EQ(inOrder(WindowsLanguage(), {"b", "C", "a"}), "a b C ");
    EXPECT_EQ(english.alphabeticalOrder({"\xff\xfe", "a", "\xff\xfe"}).size(), 3U);
}

TEST(WindowsLanguage, findsStartsWithoutRegardToCase) {
    const WindowsLanguage language(L"en-US");
    using Pair = std::pair<std::string_view, std::string_view>;
    for (const auto& [text, start] :
         {Pair("Ann Smith", "an"), Pair("ann", ""), Pair("", ""), Pair("åSA", "ÅsA"),
          Pair("ΣΊΣΥΦΟΣ", "σίσυφος"), Pair("a\xff", "A\xff"), Pair("Kelvin", "\u212A"),
          Pair("𐐀b", "𐐨B")})
        EXPECT_TRUE(language.startsWith(text, start)) << text << " and " << start;
    for (const auto& [text, start] :
         {Pair("an", "ann"), Pair("", "a"), Pair("Asa", "Å"), Pair("Å", "Ås"), Pair("a[", "a{")})
        EXPECT_FALSE(language.startsWith(text, start)) << text << " and " << start;
}

TEST(WindowsLanguage, lowerCaseIsTheSameInEveryLocale) {
    for (const wchar_t* name : {L"en-US", L"tr-TR"}) {
        const WindowsLanguage language(name);
        EXPECT_EQ(language.lowerCase("J.Smith@IN.Example[@Z`"), "j.smith@in.example[@z`");
        EXPECT_EQ(language.lowerCase("ÅSA ΣΣ \u212A 𐐀 ı ß €"), "åsa σσ k 𐐨 ı ß €");
        EXPECT_EQ(language.lowerCase("AB\xff\xc5 Å"), "ab\xff\xc5 Å") << "not UTF-8";
        EXPECT_EQ(language.lowerCase(""), "");
    }
}

}  // namespace
}  // namespace pelk
