#include <gtest/gtest.h>

#include "links/CStack.h"

namespace pelk {
namespace {

TEST(Stack, growsAndShrinksInStepsOfAHundred) {
    CStack stack;
    EXPECT_EQ(stack.Pop() + stack.Peek() + stack.Count(), 0);
    for (int value = 1; value <= 250; ++value) {
        stack.Push(value);
        EXPECT_EQ(stack.Peek(), value);
        EXPECT_EQ(stack.Capacity(), value < 100 ? 100U : value < 200 ? 200U : 300U) << value;
    }
    for (int value = 250; value >= 1; --value) {
        EXPECT_EQ(stack.Pop(), value);
        EXPECT_EQ(stack.Capacity(), value > 200 ? 300U : value > 100 ? 200U : 100U) << value;
    }
    for (int value = 1; value <= 120; ++value)
        stack.Push(value);
    stack.Clear();
    EXPECT_EQ(stack.Pop() + stack.Peek() + stack.Count(), 0);
    EXPECT_EQ(stack.Capacity(), 100U);
}

}  // namespace
}  // namespace pelk
