#include "history/history.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

using Addresses = std::vector<std::string>;

Exchange between(const History& history, const Addresses& side, const Addresses& other) {
    return history.between(side, other);
}

TEST(Month, countsBackToAnExistingDay) {
    EXPECT_EQ(monthsBefore(20240331, 1), 20240229);
    EXPECT_EQ(monthsBefore(20230331, 13), 20220228);
    EXPECT_EQ(monthsBefore(20240115, 12), 20230115);
    EXPECT_EQ(dayText(20240305) + " " + monthText(monthOf(20240305)), "2024-03-05 2024-03");
    EXPECT_EQ(dayText(0), "");
}

TEST(History, countsByMonthAndDirection) {
    History history;
    history.countMail("a@x", "b@x", 20200315);
    history.countMail("b@x", "a@x", 20200301);
    history.countMail("a@x", "a2@x", 20200301);
    history.countMail("b@x", "a2@x", 20190228);
    history.countMail("b@x", "b@x", 20190228);
    const Exchange exchange = between(history, {"a@x", "a2@x"}, {"b@x", "c@x"});
    EXPECT_EQ(
        exchange,
        (Exchange{20190228, 20200315, {{monthOf(20190201), 0, 1}, {monthOf(20200301), 1, 1}}}));
    EXPECT_EQ(between(history, {"b@x"}, {"a@x", "a2@x"}), exchange.reversed());
    std::string partners;
    history.forEachPartner("a@x", [&](const std::string& partner, const Exchange& with) {
        partners += partner + std::to_string(with.sent()) + std::to_string(with.received()) + " ";
    });
    EXPECT_EQ(partners, "b@x11 a2@x10 ");
}

TEST(History, revertsChanges) {
    History history;
    history.countMail("a@x", "b@x", 20200315);
    history.record("b@x").sent = 2;
    History other;
    other.countMail("b@x", "a@x", 20190315);
    other.countMail("b@x", "c@x", 20190315);
    other.record("b@x").listBy = "List-Id";
    const History before = history;
    HistoryChange change = history.additionOf(other);
    EXPECT_EQ(history, before);
    history.swap(change);
    EXPECT_EQ(between(history, {"a@x"}, {"b@x"}).received(), 1U);
    EXPECT_EQ(*history.findRecord("b@x"), (AddressRecord{2, 0, "", "List-Id"}));
    const History after = history;
    HistoryChange removal =
        history.removalOfOthers([](const std::string& address) { return address != "b@x"; });
    history.swap(removal);
    EXPECT_TRUE(history.empty());
    history.swap(removal);
    EXPECT_EQ(history, after);
    history.swap(change);
    EXPECT_EQ(history, before);
    EXPECT_FALSE(history == after);
}

}  // namespace
}  // namespace pelk
