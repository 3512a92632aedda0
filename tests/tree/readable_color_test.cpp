#include "platform/readable_color.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

TEST(ReadableColor, ChangesNoMoreThanItMust) {
    constexpr Color kBlack{0, 0, 0};
    for (const Color color : {Color{255, 0, 0}, Color{100, 100, 100}, Color{192, 192, 192}})
        EXPECT_EQ(readableColor(color, {255, 255, 255}), color);
    EXPECT_EQ(readableColor({0, 0, 255}, {239, 239, 239}), (Color{0, 0, 255}));
    EXPECT_EQ(readableColor({192, 192, 192}, kBlack), (Color{192, 192, 192}));
    const Color blue = readableColor({0, 0, 255}, {35, 35, 35});
    EXPECT_EQ(blue.blue, 255);
    EXPECT_GT(blue.green, 90);
    EXPECT_LT(blue.green, 160) << "it is to be blue still";
    EXPECT_GT(readableColor({100, 100, 100}, kBlack).red, 110);
    EXPECT_GT(readableColor({255, 0, 0}, {253, 246, 227}).red, 200) << "it is to be red still";
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
