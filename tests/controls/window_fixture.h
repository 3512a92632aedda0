#pragma once
// A window of the toolkit, hidden at first, with the hand of a user.

#include "tests/support/test_platform.h"

namespace pelk {

class WindowTest : public testing::Test {
 protected:
    TestPlatform platform_;
    Driver& driver_ = platform_.driver();
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
};

}  // namespace pelk
