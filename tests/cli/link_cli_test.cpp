// The commands that look for links.

#include <csignal>

#include "apps/cli/interrupt.h"
#include "tests/cli/cli_fixture.h"

namespace pelk {
namespace {

/// A knows B well and C little, who know each other; D knows nobody but has an address in C's
/// domain, too.
constexpr const char* kKnown =
    "<pelkDB date='2020-01-01T00:00:00' totalMails='0' totalContacts='4' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='A'><emails><email value='a@a.x'/></emails></contact>"
    "<contact id='2' name='B'><emails><email value='b@b.x'/></emails></contact>"
    "<contact id='3' name='C'><emails><email value='c@c.x'/></emails></contact>"
    "<contact id='4' name='D'><emails><email value='d@a.x'/><email value='d@c.x'/></emails>"
    "</contact></contacts><relations total='3'><relation part1='1' part2='2' weight='10'/>"
    "<relation part1='1' part2='3' weight='1'/><relation part1='2' part2='3' weight='5'/>"
    "</relations></pelkDB>";

class LinkCliTest : public CliTest {
 protected:
    void SetUp() override { ASSERT_EQ(run("load -", kKnown).errors, ""); }
    /// Without blanks and line breaks.
    std::string json(const std::string& arguments) {
        std::string text = run(arguments + " --json").output;
        std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
        return text;
    }
};

TEST_F(LinkCliTest, printsTheBestChainOfContacts) {
    EXPECT_EQ(run("links 1 C@c.x").output,
              "                   1  A (a@a.x)\n"
              "strong     10      2  B (b@b.x)\n"
              "medium      5      3  C (c@c.x)\n"
              "cost: 7\n");
    EXPECT_EQ(json("links 2 1"),
              R"-({"chain":[{"description":"B(b@b.x)","id":2},)-"
              R"-({"class":"strong","description":"A(a@a.x)","id":1,"weight":10}],"cost":1})-");
    expectRefused("links 1 a@a.x", 1, "You cannot select this contact again!");
    expectRefused("links 1 4", 1, "Cannot find a path between those nodes!");
    EXPECT_EQ(run("links 1").status, 2);
}

TEST_F(LinkCliTest, printsSeveralChainsAndAvoidsContacts) {
    const std::string direct =
        "                   1  A (a@a.x)\n"
        "medium      1      3  C (c@c.x)\n"
        "cost: 10\n";
    const Outcome both = run("links 1 3 --count 5");
    EXPECT_EQ(both.output, run("links 1 3").output + "\n" + direct);
    EXPECT_EQ(both.errors, "pelk: There are no more chains.\n");
    EXPECT_EQ(run("links 1 3 --without b@b.x 4").output, direct);
    EXPECT_EQ(json("links 1 3 --without 4 --without 2"),
              R"-([{"chain":[{"description":"A(a@a.x)","id":1},)-"
              R"-({"class":"medium","description":"C(c@c.x)","id":3,"weight":1}],"cost":10}])-");
    expectRefused("links 1 2 --without 3 1", 1, "A chain cannot avoid its own end, A (a@a.x).");
    expectRefused("links 1 4 --count 2", 1, "Cannot find a path between those nodes!");
    for (const char* wrong : {"0", "1001", "2x", "-1", "99999999999999999999"})
        EXPECT_EQ(run(std::string("links 1 2 --count ") + wrong).status, 2) << wrong;
    EXPECT_EQ(run("links 1 2 --without").status, 2);
}

TEST_F(LinkCliTest, printsTheBestChainsOfDomains) {
    const std::string ofD = "     0  4 D (d@a.x/d@c.x) - 4 D (d@a.x/d@c.x)\n";
    EXPECT_EQ(run("domain-links a.x C.x").output,
              "     7  1 A (a@a.x) - 2 B (b@b.x) - 3 C (c@c.x)\n" + ofD);
    EXPECT_EQ(run("domain-links a.x c.x --best").output, ofD);
    EXPECT_EQ(json("domain-links a.x b.x"),
              R"({"chains":[{"chain":[1,2],"cost":1}],"source":"a.x","target":"b.x"})");
    expectRefused("domain-links a.x a.x", 1, "a.x is the same as a.x");
    expectRefused("domain-links d@c.x b.x", 1, "Cannot find a path between d@c.x and b.x");
}

TEST_F(LinkCliTest, printsLikelyDuplicates) {
    run("rename 1 'Zoe Smith'");
    run("rename 3 'SMITH, Zoë'");
    EXPECT_EQ(run("duplicates").output, "1 Zoe Smith (a@a.x) - 3 SMITH, Zoë (c@c.x): same name\n");
    EXPECT_EQ(json("duplicates"),
              R"-([{"contacts":[{"description":"ZoeSmith(a@a.x)","id":1},)-"
              R"-({"description":"SMITH,Zoë(c@c.x)","id":3}],"reason":"samename"}])-");
}

TEST(InterruptWatch, remembersTheFirstInterruptAndLetsTheSecondThrough) {
    {
        InterruptWatch watch;
        EXPECT_FALSE(watch.interrupted());
        std::raise(SIGINT);
        EXPECT_TRUE(watch.interrupted());
        EXPECT_EXIT(std::raise(SIGINT), ::testing::KilledBySignal(SIGINT), "");
    }
    EXPECT_FALSE(InterruptWatch().interrupted());
}

}  // namespace
}  // namespace pelk
