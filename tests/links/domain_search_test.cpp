#include "links/domain_search.h"

#include <functional>

#include "links/best_chains.h"
#include "tests/links/chains.h"

namespace pelk {
namespace {

class DomainSearchTest : public ::testing::Test, private DomainSearchProgress {
 protected:
    /// Contacts 1 and 2 are in domain a; 4, 2 and 3 in domain b; 5 in neither.
    std::unique_ptr<Database> database = databaseOf(
        5, {{1, 5, "2"}, {4, 5, "2"}},
        "<contact id='1'><emails><email value='x@a'/><email value='y@a'/></emails></contact>"
        "<contact id='4'><emails><email value='x@b'/></emails></contact>"
        "<contact id='2'><emails><email value='z@a'/><email value='z@b'/></emails></contact>"
        "<contact id='3'><emails><email value='y@b'/></emails></contact>");
    /// Runs before each pair, in place of the user.
    std::function<void(std::size_t pair)> act = [](std::size_t) {};
    bool stop = false;

    /// The progress calls and the chains, as text.
    std::string find(const std::string& target = "b") {
        log.clear();
        for (const LinkChain& chain : findDomainLinks(*database, "a", target, *this).chains)
            log += "\n" + textOf(chain);
        return log;
    }

 private:
    void pairsCounted(std::size_t count) override { log += std::to_string(count) + " pairs"; }
    void pairStarted(std::size_t index) override {
        log += ", " + std::to_string(index);
        act(index);
    }
    bool stopsAfterChain() override {
        log += " found";
        return stop;
    }

    std::string log;
};

TEST_F(DomainSearchTest, findsTheChainOfEachPairInTheCurrentDocument) {
    EXPECT_EQ(find(), "6 pairs, 1 found, 2, 3, 4, 5 found, 6\n2: 1 5 4\n0: 2 2");
    EXPECT_EQ(find("c"), "0 pairs");
    act = [this](std::size_t pair) {
        if (pair == 3)
            database->addMailBetween(1, 3);
    };
    EXPECT_EQ(find(), "6 pairs, 1 found, 2, 3 found, 4, 5 found, 6\n2: 1 5 4\n2: 1 3\n0: 2 2");
}

TEST_F(DomainSearchTest, stopsOnlyAfterAChain) {
    act = [this](std::size_t pair) { stop = pair >= 2; };
    EXPECT_EQ(find(), "6 pairs, 1 found, 2, 3, 4, 5 found\n2: 1 5 4\n0: 2 2");
    act = [this](std::size_t pair) { stop = pair == 2; };
    EXPECT_EQ(find(), "6 pairs, 1 found, 2, 3, 4, 5 found, 6\n2: 1 5 4\n0: 2 2");
}

TEST(DomainSearch, refusesADomainThatEndsWithTheOther) {
    EXPECT_EQ(domainRefusal("a.b", "a.b"), "a.b is the same as a.b");
    EXPECT_EQ(domainRefusal("example.org", "myexample.org"),
              "myexample.org is a subdomain of example.org");
    EXPECT_EQ(domainRefusal("x@b", "b"), "x@b is a subdomain of b");
    EXPECT_EQ(domainRefusal("A.b", "a.b"), std::nullopt);
    for (const auto& [source, target] : {std::pair("", "b"), {"b", ""}, {"", ""}})
        EXPECT_EQ(domainRefusal(source, target), "The domain is empty.");
}

TEST(BestChains, haveTheLowestCostUpToTheLimit) {
    using Positions = std::vector<std::size_t>;
    EXPECT_EQ(bestChains({7, 3, 30001, 3}), (Positions{1, 3}));
    EXPECT_EQ(bestChains({30000, 30001}), Positions{0});
    EXPECT_EQ(bestChains({30001, 99999}), Positions{});
}

}  // namespace
}  // namespace pelk
