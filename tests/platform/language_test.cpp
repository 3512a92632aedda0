#include <gtest/gtest.h>

#include "tests/support/adapters.h"

namespace pelk {
namespace {

class LanguageTest : public ::testing::Test {
 protected:
    const std::unique_ptr<Language> language = makeLanguage();

    std::string inOrder(const std::vector<std::string_view>& texts) const {
        std::string all;
        for (const std::size_t position : language->alphabeticalOrder(texts))
            (all += texts[position]) += ' ';
        return all;
    }
};

TEST_F(LanguageTest, ordersForPeople) {
    EXPECT_EQ(inOrder({"bob", "Zoe", "Ärla", "ann", "Bea", "", "zeta"}),
              " ann Ärla Bea bob zeta Zoe ");
    EXPECT_EQ(inOrder({"a10", "a9", "a1"}), "a1 a10 a9 ");
    EXPECT_EQ(inOrder({"ANN", "bob", "ann", "Ann"}), "ANN ann Ann bob ");
    EXPECT_EQ(language->alphabeticalOrder({"\xff\xfe", "a", "\xff\xfe"}).size(), 3U);
    EXPECT_EQ(inOrder({}), "");
}

TEST_F(LanguageTest, ordersManyAsItOrdersFew) {
    constexpr std::size_t kMany = 3001;
    const std::vector<std::string> different = {"zeta", "Ärla", "ann", "Zoe", "bob", "Ann", ""};
    const std::vector<std::string_view> few(different.begin(), different.end());
    std::vector<std::string_view> many;
    std::vector<std::size_t> expected;
    for (std::size_t i = 0; i < kMany; ++i)
        many.push_back(few[i % few.size()]);
    // Letter case is ignored, so "ann" and "Ann" keep their order.
    for (const std::size_t which : language->alphabeticalOrder(few))
        for (std::size_t i = which; i < kMany && few[which] != "Ann"; ++i)
            if (many[i] == few[which] || (few[which] == "ann" && many[i] == "Ann"))
                expected.push_back(i);
    EXPECT_EQ(language->alphabeticalOrder(many), expected);
}

TEST_F(LanguageTest, findsStartsWithoutRegardToCase) {
    using Pair = std::pair<std::string_view, std::string_view>;
    for (const auto& [text, start] :
         {Pair("Ann Smith", "an"), Pair("ann", ""), Pair("", ""), Pair("åSA", "ÅsA"),
          Pair("ΣΊΣΥΦΟΣ", "σίσυφος"), Pair("a\xff", "A\xff"), Pair("Kelvin", "\u212A"),
          Pair("𐐀b", "𐐨B")})
        EXPECT_TRUE(language->startsWith(text, start)) << text << " and " << start;
    const std::string_view part = std::string_view("annex").substr(0, 2);
    for (const auto& [text, start] : {Pair("an", "ann"), Pair("", "a"), Pair("Asa", "Å"),
                                      Pair("Å", "Ås"), Pair("a[", "a{"), Pair(part, "ann")})
        EXPECT_FALSE(language->startsWith(text, start)) << text << " and " << start;
}

TEST_F(LanguageTest, lowersCaseAndLeavesAllElse) {
    EXPECT_EQ(language->lowerCase("J.Smith@IN.Example[@Z`"), "j.smith@in.example[@z`");
    EXPECT_EQ(language->lowerCase("ÅSA ΣΣ \u212A 𐐀 ı ß €"), "åsa σσ k 𐐨 ı ß €");
    EXPECT_EQ(language->lowerCase("AB\xff\xc5 Å"), "ab\xff\xc5 Å") << "not UTF-8";
    EXPECT_EQ(language->lowerCase(""), "");
}

TEST_F(LanguageTest, foldsCaseAndAccentsForSearches) {
    using Pair = std::pair<std::string_view, std::string_view>;
    for (const auto& [text, plain] :
         {Pair("Ann.SMITH@x [Z`", "ann.smith@x [z`"), Pair("Zoë ÅNGSTRÖM", "zoe angstrom"),
          Pair("Zoe\u0308", "zoe"), Pair("Straße STRASSE ẞ", "strasse strasse ss"),
          Pair("Søren Łukasz Æsa İı", "soren lukasz aesa ii"), Pair("ΣΊΣΥΦΟΣ Ώ", "σισυφοσ ω"),
          Pair("σίσυφος", "σισυφοσ"), Pair("ЁЛКА Йод Ѓ", "елка иод г"), Pair("ﬁｘ①", "fix1"),
          Pair("नि กี", "नि กี"), Pair("𐐀", "𐐨"), Pair("", "")})
        EXPECT_EQ(language->folded(text), plain);
    EXPECT_EQ(language->folded("한"), language->folded("\u1112\u1161\u11ab"));
    for (const std::string_view broken : {"\xff"
                                          "Zo\xc3",
                                          "\xc3Zo", "Zo\xed\xa0\x80", "Zo\xcc"})
        EXPECT_NE(language->folded(broken).find("zo"), std::string::npos) << broken;
}

}  // namespace
}  // namespace pelk
