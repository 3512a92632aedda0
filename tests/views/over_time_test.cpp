#include "views/over_time.h"

#include <gtest/gtest.h>

#include "tests/db/documents.h"
#include "views/lost_sight.h"

namespace pelk {
namespace {

using Periods = std::vector<PeriodCount>;

/// Ann (1, two addresses) has a relation of 100 with Bob, of 60 with Cy, of 40 with Dee, of 3 with
/// Eve; Bob has one of 90 with Cy. The thresholds are 50 and 5 percent.
Database community() {
    return load(documentOf(
        "<contact id='1'><emails><email value='ann@a'/><email value='ann@b'/></emails></contact>" +
            contactXml("2", "bob@b") + contactXml("3", "cy@c") + contactXml("4", "dee@d") +
            contactXml("5", "eve@e"),
        relationXml("1", "2", "100") + relationXml("1", "3", "60") + relationXml("1", "4", "40") +
            relationXml("1", "5", "3") + relationXml("2", "3", "90")));
}

TEST(OverTime, SumsUpTheAddressesAndShowsEmptyPeriods) {
    const Database database = community();
    History history;
    history.countMail("ann@a", "bob@b", 20231205);
    history.countMail("bob@b", "ann@b", 20240201);
    history.countMail("ann@b", "cy@c", 20260301);
    history.countMail("ann@a", "ann@b", 20260401);
    const Exchange two = exchangeOf(database, history, 1, 2);
    EXPECT_EQ(two.last, 20240201);
    EXPECT_EQ(periodsOf(two, Period::Monthly),
              (Periods{{"2023-12", 1, 0}, {"2024-01", 0, 0}, {"2024-02", 0, 1}}));
    EXPECT_EQ(periodsOf(exchangeOf(database, history, 2, 1), Period::Yearly),
              (Periods{{"2023", 0, 1}, {"2024", 1, 0}}));
    EXPECT_EQ(periodsOf(exchangeOf(database, history, 1), Period::Yearly),
              (Periods{{"2023", 1, 0}, {"2024", 0, 1}, {"2025", 0, 0}, {"2026", 1, 0}}))
        << "an e-mail to oneself is no exchange";
    EXPECT_EQ(periodsOf(exchangeOf(database, history, 4), Period::Monthly), Periods());
    EXPECT_TRUE(exchangeOf(database, history, 9, 1).empty()) << "there is no contact 9";
}

std::string textOf(const LostSight& lost) {
    std::string text;
    for (const LostContact& contact : lost.contacts)
        text += std::to_string(contact.id) + " " + nameOf(contact.strength) + " " +
                dayText(contact.last) + "; ";
    return text + std::to_string(lost.undated);
}

TEST(LostSight, NamesStrongAndMediumRelationsWithoutRecentMail) {
    const Database database = community();
    History history;
    constexpr Day kToday = 20261123;
    EXPECT_EQ(textOf(lostSightOf(database, history, {1}, kToday, 12)), "3");
    history.countMail("ann@b", "bob@b", 20250101);
    history.countMail("cy@c", "ann@a", 20240630);
    history.countMail("dee@d", "ann@a", 20240101);
    history.countMail("ann@a", "dee@d", 20251123);
    history.countMail("eve@e", "ann@a", 20000101);
    EXPECT_EQ(textOf(lostSightOf(database, history, {1}, kToday, 12)),
              "2 strong 2025-01-01; 3 strong 2024-06-30; 0")
        << "a year ago to the day is not more than a year";
    EXPECT_EQ(textOf(lostSightOf(database, history, {1}, kToday, 24)), "3 strong 2024-06-30; 0");
    EXPECT_EQ(textOf(lostSightOf(database, history, {2, 1}, kToday, 6)),
              "3 strong 2024-06-30; 4 medium 2025-11-23; 0")
        << "two contacts of one person";
    EXPECT_EQ(ownersOf(database, {"ann@b", "nobody@x", "ann@a", "cy@c"}), (std::vector<int>{1, 3}));
}

}  // namespace
}  // namespace pelk
