#include <gtest/gtest.h>

#include "db/date_stamp.h"
#include "db/numbers.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

TEST(Numbers, areReadLenientlyAndRoundHalvesToEven) {
    using Case = std::pair<const char*, double>;
    for (const auto& [text, number] : {Case("", 0),
                                       {"12abc", 12},
                                       {" 3.25 ", 3.25},
                                       {"-5", -5},
                                       {"+7", 7},
                                       {"--7", 0},
                                       {"inf", 0},
                                       {"nan", 0},
                                       {"1e9", 1}})
        EXPECT_EQ(readNumber(text), number) << text;
    EXPECT_GT(readNumber(std::string(400, '9')), 1e300);

    for (const auto& [text, number] : {std::pair("0.5", 0), {"1.5", 2}, {"2.5", 2}, {"-1.5", -2}})
        EXPECT_EQ(readInteger(text), number) << text;
    EXPECT_EQ(roundToInteger(1e300), INT64_MAX);
    EXPECT_EQ(roundToInteger(-1e300), INT64_MIN);
}

TEST(Numbers, idsFit16Bits) {
    EXPECT_EQ(readContactId("32767"), 32767);
    EXPECT_EQ(readContactId("32768"), 0);
    EXPECT_EQ(readContactId("-1"), 0);
    EXPECT_EQ(plainContactId("17"), 17);
    for (const char* text : {"", "017", "17 ", "+17", "1x", "32768", "999999"})
        EXPECT_EQ(plainContactId(text), std::nullopt) << text;
}

TEST(DateStamp, padsAllButTheYearAndIsReadWithoutSeconds) {
    EXPECT_EQ(formatStamp({2005, 2, 3, 5, 7, 9}), "2005-02-03T05:07:09");
    EXPECT_EQ(formatStamp({2026, 11, 22, 23, 59, 58}), "2026-11-22T23:59:58");
    EXPECT_EQ(parseStamp("2005-02-03T05:07:59"), (LocalTime{2005, 2, 3, 5, 7, 0}));
    EXPECT_EQ(parseStamp("junk"), (LocalTime{0, 0, 0, 0, 0, 0}));
}

TEST(DateStamp, agesInDays) {
    EXPECT_EQ(ageInDays("2026-11-15T10:30:00", {2026, 11, 22, 10, 30, 0}), 7);
    EXPECT_GT(ageInDays("2026-11-15T10:30:00", {2026, 11, 22, 10, 31, 0}), 7);
    EXPECT_EQ(ageInDays("2024-02-28T00:00:00", {2024, 3, 1, 12, 0, 0}), 2.5);
    EXPECT_LT(ageInDays("2027-01-01T00:00:00", {2026, 11, 22, 0, 0, 0}), 0);
}

TEST(CleanText, keepsXmlCharacters) {
    EXPECT_EQ(cleanText("Zoë Ωmega 李 🙂"), "Zoë Ωmega 李 🙂");
    EXPECT_EQ(cleanText(std::string_view("a\0b\tc\nd\x7F\xC2\x85", 10)), "a b c d  ");
    EXPECT_EQ(cleanText("\xFF|\xC0\xAF|\xED\xA0\x80|\xF5|\xE2\x82"),
              "\uFFFD|\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD|\uFFFD\uFFFD");
    EXPECT_EQ(cleanText("\uFFFE"), "\uFFFD");
    EXPECT_TRUE(isXmlText("a\tb\r\n\uFFFD"));
    for (std::size_t at = 0; at < 200; ++at)
        EXPECT_FALSE(isXmlText(std::string(at, '~') + "\x01" + std::string(199 - at, ' '))) << at;
    EXPECT_FALSE(isXmlText("\uFFFF"));
    EXPECT_FALSE(isXmlText("\xE2\x82"));
}

}  // namespace
}  // namespace pelk
