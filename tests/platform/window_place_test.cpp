#include "platform/window_place.h"

#include <gtest/gtest.h>

namespace pelk {
namespace {

constexpr Rect kScreen{100, 50, 960, 540};

TEST(WindowPlace, isMovedInsideTheScreenAndShrunkToIt) {
    EXPECT_EQ(fittedInto({300, 100, 400, 300}, kScreen), (Rect{300, 100, 400, 300}));
    EXPECT_EQ(fittedInto({-5000, 9000, 400, 300}, kScreen), (Rect{100, 290, 400, 300}));
    EXPECT_EQ(fittedInto({900, 0, 2000, 700}, kScreen), kScreen);
    EXPECT_EQ(centredOver({0, 0, 400, 300}, {1000, 500, 200, 500}), (Rect{900, 600, 400, 300}));
}

TEST(WindowPlace, isReadBackFromItsTextAndFromNoOther) {
    EXPECT_EQ(placeIn(textOfPlace({-7, 20, 640, 480})), (Rect{-7, 20, 640, 480}));
    for (const char* text : {"", "1 2 3", "a b c d", "1 2 0 4", "1 2 3 99999999999"})
        EXPECT_FALSE(placeIn(text)) << text;
}

}  // namespace
}  // namespace pelk
