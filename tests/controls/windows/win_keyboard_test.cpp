// What the keyboard does in a window that stands in a host's message loop.

#include <gtest/gtest.h>

#include "tests/support/test_platform.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {

namespace {

class WinKeyboard : public testing::Test {
 protected:
    WinKeyboard() { window_->setInnerSize({6000, 4000}); }

    TestPlatform platform_;
    Driver& driver_ = platform_.driver();
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
};

TEST_F(WinKeyboard, ArrowsStayAmongTheOptionButtonsAndTabLeavesThem) {
    TextBox& before = window_->addTextBox({0, 0, 2000, 300});
    OptionButton& first = window_->addOptionButton({0, 500, 2000, 300}, "first");
    TextBox& between = window_->addTextBox({0, 1000, 2000, 300});
    OptionButton& second = window_->addOptionButton({0, 1500, 2000, 300}, "second");
    Button& behind = window_->addButton({0, 2000, 2000, 300}, "&Behind");
    std::string acts;
    first.onClick = [&acts] { acts += "1"; };
    second.onClick = [&acts] { acts += "2"; };
    behind.onClick = [&acts] { acts += "b"; };
    window_->show();
    driver_.giveFocus(before);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(first));
    EXPECT_EQ(acts, "") << "the focus alone checks nothing";
    for (const Key key : {Key::Down, Key::Down, Key::Up})
        driver_.press(*window_, key);
    EXPECT_EQ(acts, "212");
    EXPECT_TRUE(second.isChecked());
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(between));
    driver_.press(*window_, Key::Down);
    EXPECT_TRUE(driver_.hasFocus(between));
    PostMessageW(native(between), WM_SYSCHAR, L'b', 1 | 1 << 29);
    driver_.settle();
    EXPECT_EQ(acts, "212b");
}

TEST_F(WinKeyboard, MenuKeyAsksForAMenuAtTheSelectedRow) {
    TreeView& tree = window_->addTreeView({1000, 0, 5000, 4000});
    for (int row = 0; row < 100; ++row)
        tree.model().add(tree.model().root(), "row");
    int asked = 0;
    tree.onMenuRequest = [&](ScreenPoint where) {
        RECT place = {};
        GetWindowRect(native(tree), &place);
        EXPECT_TRUE(PtInRect(&place, {where.x, where.y}));
        ++asked;
    };
    window_->show();
    SendMessageW(native(tree), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(asked, 0) << "nothing is selected";
    tree.select(tree.model().root().children()[50]);
    SendMessageW(native(tree), WM_VSCROLL, SB_TOP, 0);
    SendMessageW(native(tree), WM_CONTEXTMENU, 0, -1);
    EXPECT_EQ(asked, 1);
}

}  // namespace

}  // namespace pelk
