#include "platform/readable_color.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

TEST(ReadableColor, IsLightenedOnADarkBackgroundOnly) {
    constexpr Color kBlack{0, 0, 0};
    for (const Color color : {Color{255, 0, 0}, Color{100, 100, 100}, Color{0, 0, 255}})
        for (const Color background : {Color{255, 255, 255}, Color{239, 239, 239}})
            EXPECT_EQ(readableColor(color, background), color);
    EXPECT_EQ(readableColor({192, 192, 192}, kBlack), (Color{192, 192, 192}));
    const Color blue = readableColor({0, 0, 255}, {35, 35, 35});
    EXPECT_EQ(blue.blue, 255);
    EXPECT_GT(blue.green, 90);
    EXPECT_LT(blue.green, 160) << "it is to be blue still";
    EXPECT_GT(readableColor({100, 100, 100}, kBlack).red, 110);
}

TEST(FadedColor, IsAsFaintAsCanBeRead) {
    constexpr Color kWhite{255, 255, 255};
    const Color onWhite = fadedColor({0, 0, 0}, kWhite);
    EXPECT_GT(onWhite.red, 100);
    EXPECT_LT(onWhite.red, 119) << "#777777 has less contrast than 4.5";
    EXPECT_LT(fadedColor(kWhite, {0, 0, 0}).red, 150);
    EXPECT_EQ(fadedColor({140, 140, 140}, kWhite), (Color{140, 140, 140}));
}

}  // namespace
}  // namespace pelk
