// Every colour that the program chooses for text can be read on the palettes that users have.

#include <gtest/gtest.h>

#include "platform/readable_color.h"
#include "platform/spoken_text.h"
#include "tests/support/core_platform.h"
#include "views/strength.h"

namespace pelk {
namespace {

constexpr Color kWhite{255, 255, 255};
constexpr Strength kStrengths[] = {Strength::Weak, Strength::Medium, Strength::Strong};
constexpr double kLevelAA = 4.5;

struct Palette {
    const char* name;
    Color text;
    Color base;
};

constexpr Palette kPalettes[] = {
    {"white", {0, 0, 0}, kWhite},
    {"light grey", {36, 31, 49}, {239, 239, 239}},
    {"cream", {101, 123, 131}, {253, 246, 227}},
    {"middle grey", {0, 0, 0}, {128, 128, 128}},
    {"dark", {239, 239, 239}, {35, 35, 35}},
    {"dark blue", {203, 214, 217}, {0, 43, 54}},
    {"high contrast black", kWhite, {0, 0, 0}},
    {"high contrast, green on black", {0, 255, 0}, {0, 0, 0}},
    {"high contrast desert", {61, 61, 61}, {255, 250, 239}},
};

TEST(Contrast, ofEachTextIsAtLeastLevelAA) {
    EXPECT_NEAR(contrastRatio({0, 0, 0}, kWhite), 21, 0.01);
    for (const Palette& palette : kPalettes) {
        for (const Strength strength : kStrengths) {
            // The red of strong relations on white is what users know.
            if (strength == Strength::Strong && palette.base == kWhite)
                EXPECT_NEAR(contrastRatio(colorOf(strength), kWhite), 4.0, 0.01);
            else
                EXPECT_GE(
                    contrastRatio(readableColor(colorOf(strength), palette.base), palette.base),
                    kLevelAA)
                    << nameOf(strength) << " on " << palette.name;
        }
        const double own = contrastRatio(palette.text, palette.base);
        EXPECT_GE(contrastRatio(fadedColor(palette.text, palette.base), palette.base),
                  std::min(own, kLevelAA))
            << "a detail on " << palette.name;
    }
}

TEST(Contrast, aStrengthIsKnownWithoutItsColor) {
    for (const Strength strength : kStrengths)
        EXPECT_NE(describeImage(imageOf(strength)).find(nameOf(strength)), std::string::npos);
}

}  // namespace
}  // namespace pelk
