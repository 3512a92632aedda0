#include "platform/desktop/mail/message_time.h"

#include <gtest/gtest.h>

#include <ctime>

namespace pelk {
namespace {

constexpr std::int64_t kMoment = 978404645;  // 2001-01-02 03:04:05 UTC

TEST(MessageTimeTest, readsTheLineBetweenMessages) {
    for (const char* const line : {
             "From jane@x.org Tue Jan  2 03:04:05 2001",
             "From - Tue Jan 02 03:04:05 2001\r",
             "From \"jane doe 12:30\"@x Tue Jan  2 03:04:05 2001",
             "From a@b Tue Jan  2 04:04:05 +0100 2001",
             "From a@b Tue Jan  2 02:04:05 2001 -0100",
             "From a@b Tue Jan  2 04:04:05 CET 2001",
             "From a@b Tue JAN  2 03:04:05 XYZ 2001 remote from host",
             "From a@b Tue Jan  2 03:04:05 01",
             "From a@b Tue, 2 Jan 2001 03:04:05 +0000",
             "From Tue Jan  2 03:04:05 2001",
         })
        EXPECT_EQ(fromLineTime(line), kMoment) << line;
    EXPECT_EQ(fromLineTime("From a@b Tue Jan  2 03:04 2001"), kMoment - 5);
    EXPECT_EQ(fromLineTime("From a@b Fri Dec 31 23:59:60 99"), 946684800);
    for (const char* const line : {
             "From ",
             "From a@b",
             "From a@b Tue Jan  2 03:04:05",
             "From a@b Tue Feb 30 03:04:05 2001",
             "From a@b Tue Jan  2 24:04:05 2001",
             "From a@b Tue Jan  2 03:60:05 2001",
             "From a@b Wed Dec 31 23:00:00 1969",
             "From a@b Tue Jan  2 03:04:05 +9900 2001",
             "From a@b Tue Jan  2 03:04:05 20011",
             "From a@b Tue 2 03:04:05 2001",
             "From a 1:22 1:2:",
         })
        EXPECT_EQ(fromLineTime(line), kNoTime) << line;
}

TEST(MessageTimeTest, readsNamesOfMaildirFiles) {
    EXPECT_EQ(maildirNameTime("978404645.M1P2.host:2,S"), kMoment);
    EXPECT_EQ(maildirNameTime("99999999999999999999999.host"), kNoTime);
    for (const char* const name : {"978404645", "a978404645.host", ".host", "-5.host"})
        EXPECT_EQ(maildirNameTime(name), std::nullopt) << name;
}

TEST(MessageTimeTest, turnsIntoTheUsersTime) {
    ::setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
    ::tzset();
    EXPECT_EQ(localTime(kMoment), (LocalTime{2001, 1, 1, 22, 4, 5}));
    EXPECT_EQ(localTime(994046645), (LocalTime{2001, 7, 2, 0, 4, 5}));
    // The year 1969 and the year 10000 on the user's clock.
    EXPECT_EQ(localTime(3600), std::nullopt);
    EXPECT_EQ(localTime(253402318800), std::nullopt);
    EXPECT_EQ(localTime(253402318799), (LocalTime{9999, 12, 31, 23, 59, 59}));
}

}  // namespace
}  // namespace pelk
