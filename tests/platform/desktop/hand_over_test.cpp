#include "platform/desktop/hand_over.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace pelk {
namespace {

TEST(HandOver, stopsAtTheFirstThatCannotBeTaken) {
    std::string taken;
    HandOver handOver([&taken](std::string_view piece) {
        taken += piece;
        if (piece == "2")
            throw std::runtime_error("full");
    });
    for (const char* piece : {"1", "2", "3"})
        handOver.add(piece);
    EXPECT_THROW(handOver.finish(), std::runtime_error);
    EXPECT_EQ(taken, "12");
}

TEST(HandOver, endsUnfinished) {
    std::size_t taken = 0;
    {
        HandOver handOver([&taken](std::string_view) { ++taken; });
        for (int i = 0; i < 100; ++i)
            handOver.add("piece");
    }
    EXPECT_LE(taken, 100U);
    HandOver([](std::string_view) { FAIL(); }).finish();
}

}  // namespace
}  // namespace pelk
