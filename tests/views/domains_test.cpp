#include "views/domains.h"

#include <gtest/gtest.h>

#include "tests/support/core_platform.h"
#include "views/email_parser.h"

namespace pelk {
namespace {

using Texts = std::vector<std::string>;

TEST(AddressSplitter, keepsTheLocalPartAndLowersTheLabels) {
    const std::unique_ptr<Language> language = makeLanguage();
    EXPECT_EQ(splitAddress("J.Smith@Sub.Dom.TLD", *language),
              (Texts{"J.Smith", "sub", "dom", "tld"}));
    EXPECT_EQ(splitAddress("a@b..C", *language), (Texts{"a", "b", "", "c"}));
    EXPECT_EQ(splitAddress("a@", *language), (Texts{"a", ""}));
    EXPECT_EQ(splitAddress("@b@c.d", *language), (Texts{"", "b@c", "d"}));
    EXPECT_EQ(splitAddress("Ärger@ÖL.at", *language), (Texts{"Ärger", "öl", "at"}));
    EXPECT_EQ(splitAddress("nobody", *language), std::nullopt);
    EXPECT_EQ(splitAddress("", *language), std::nullopt);
}

class DomainsTest : public ::testing::Test {
 protected:
    std::unique_ptr<Language> language = makeLanguage();
    std::unique_ptr<Database> database = loadDocument(
        "<pelkDB><contacts><contact id='1' name='Ann'><emails><email value='ann@B.A'/>"
        "<email value='x@a'/><email value='no address'/></emails></contact>"
        "<contact id='2' name='Bob'><emails><email value='b@a'/><email value='bob@b.a'/>"
        "<email value='q@b..c'/></emails></contact>"
        "<contact id='3' name='Cy'><emails><email value='bob@b.a'/><email value='yx@cb.a'/>"
        "</emails></contact></contacts><relations/></pelkDB>");
    const std::vector<MailAddress> addresses = mailAddresses(*database, *language);

    Texts below(const Texts& labels) {
        Texts texts;
        for (const DomainEntry& entry : entriesBelow(addresses, labels))
            texts.push_back(entry.text + (entry.isAddress() ? "=" + entry.address : ""));
        return texts;
    }
};

TEST_F(DomainsTest, listsOneLevelInOrderOfAppearance) {
    EXPECT_EQ(topLevelDomains(addresses), (Texts{"a", "c"}));
    EXPECT_EQ(below({"a"}), (Texts{"b", "x (Ann)=x@a", "b (Bob)=b@a", "cb"}))
        << "the address b@a stands beside the domain b.a";
    EXPECT_EQ(below({"b", "a"}), (Texts{"ann (Ann)=ann@B.A", "bob (Bob)=bob@b.a"}))
        << "of two owners the first is shown";
    EXPECT_EQ(below({"c"}), (Texts{""}));
    EXPECT_EQ(below({"", "c"}), (Texts{"b"}));
    EXPECT_EQ(below({"ann", "b", "a"}), Texts{}) << "a local part is no label";
    EXPECT_EQ(below({"x", "b", "a"}), Texts{});
}

TEST_F(DomainsTest, findsContactsByAnySuffixOfTheirAddresses) {
    EXPECT_EQ(contactsBySuffix(*database, "b.a"), (std::vector{2, 3})) << "letter case counts";
    EXPECT_EQ(contactsBySuffix(*database, "x@a"), (std::vector{1}));
    EXPECT_EQ(contactsBySuffix(*database, "a"), (std::vector{1, 2, 3}));
    EXPECT_EQ(contactsBySuffix(*database, "z"), std::vector<int>{});
}

}  // namespace
}  // namespace pelk
