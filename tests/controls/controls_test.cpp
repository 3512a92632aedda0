// What every toolkit must do with labels, buttons, progress bars and the places of controls.

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/error.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

class Controls : public testing::Test {
 protected:
    Controls() { window_->setInnerSize({6000, 3000}); }

    TestPlatform platform_;
    Driver& driver_ = platform_.driver();
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
};

TEST_F(Controls, ShowTheirTextsAsTheyAre) {
    Label& label = window_->addLabel({0, 0, 5000, 250}, "gyp & <b>Åsa</b>");
    Button& button = window_->addButton({0, 300, 2000, 250}, "Find & go");
    window_->show();
    EXPECT_EQ(driver_.textOf(label), "gyp & <b>Åsa</b>");
    EXPECT_EQ(driver_.textOf(button), "Find & go");
    EXPECT_TRUE(driver_.showsWholeText(label));
    EXPECT_TRUE(driver_.showsWholeText(button));

    label.setText(
        "first words of a text that takes more than the one line it is given, by far, "
        "and then some more");
    EXPECT_FALSE(driver_.showsWholeText(label));
    label.setBounds({0, 0, 5000, 1000});
    EXPECT_TRUE(driver_.showsWholeText(label)) << "the text does not wrap";
    label.repaint();
}

TEST_F(Controls, StandWhereTheyArePut) {
    Label& upper = window_->addLabel({}, "");
    Label& lower = window_->addLabel({}, "");
    window_->show();
    for (int step = 0; step < 40; ++step) {
        const Rect put{7 * step, 13 * step, 400 + 3 * step, 250 + step};
        upper.setBounds(put);
        lower.setBounds({put.left + put.width, put.top + put.height, 900, 250});
        const Rect found = upper.bounds();
        const int pixel = 16;
        EXPECT_NEAR(found.left, put.left, pixel);
        EXPECT_NEAR(found.top, put.top, pixel);
        EXPECT_NEAR(found.width, put.width, pixel);
        EXPECT_NEAR(found.height, put.height, pixel);
        EXPECT_EQ(driver_.boundsOf(upper), found);
        EXPECT_EQ(found.left + found.width, lower.bounds().left) << "they no longer touch";
        EXPECT_EQ(found.top + found.height, lower.bounds().top) << "they no longer touch";
        upper.setBounds(found);
        EXPECT_EQ(upper.bounds(), found) << "what is read and put back moves";
    }
}

TEST_F(Controls, AreClickedUnlessDisabled) {
    int clicks = 0;
    Button& button = window_->addButton({0, 0, 1000, 250}, "OK");
    window_->show();
    driver_.click(button);
    button.onClick = [&] { ++clicks; };
    driver_.click(button);
    EXPECT_EQ(clicks, 1);
    button.setEnabled(false);
    EXPECT_FALSE(driver_.isEnabled(button));
    driver_.click(button);
    EXPECT_EQ(clicks, 1);
    button.setEnabled(true);
    button.onClick = [&] {
        button.onClick = nullptr;
        window_->hide();
        ++clicks;
    };
    driver_.click(button);
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(driver_.isVisible(*window_));
}

TEST_F(Controls, AreReachedByTabInTheOrderOfTheirCreation) {
    int clicks = 0;
    Button& second = window_->addButton({0, 1000, 1000, 250}, "lower");
    window_->addLabel({0, 500, 1000, 250}, "between");
    window_->addProgressBar({3000, 500, 1000, 250});
    Button& third = window_->addButton({0, 0, 1000, 250}, "upper");
    TreeView& fourth = window_->addTreeView({0, 1500, 6000, 1500});
    third.onClick = [&] { ++clicks; };
    window_->show();
    driver_.giveFocus(second);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(third));
    driver_.press(*window_, Key::Enter);
    EXPECT_EQ(clicks, 1);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(fourth));
}

TEST_F(Controls, ShowWhatTheirHandlersThrow) {
    Button& button = window_->addButton({0, 0, 1000, 250}, "OK");
    window_->show();
    button.onClick = [] { throw Error("The disk is full."); };
    platform_.dialogs.expectMessage("The disk is full.");
    driver_.click(button);
    button.onClick = [] { throw std::runtime_error("seven"); };
    platform_.dialogs.expectMessage("Unexpected fault: seven");
    driver_.click(button);
    button.onClick = [] { throw 7; };
    platform_.dialogs.expectMessage("Unexpected fault.");
    driver_.click(button);
}

TEST_F(Controls, ProgressStaysInItsRange) {
    ProgressBar& bar = window_->addProgressBar({0, 0, 6000, 250});
    window_->show();
    const auto expectProgress = [&](int minimum, int maximum, int value) {
        const Progress shown = driver_.progressOf(bar);
        EXPECT_EQ(shown.minimum, minimum);
        EXPECT_EQ(shown.maximum, maximum);
        EXPECT_EQ(shown.value, value);
    };
    bar.setRange(1, 40000);
    expectProgress(1, 40000, 1);
    bar.setValue(39999);
    expectProgress(1, 40000, 39999);
    bar.setValue(50000);
    expectProgress(1, 40000, 40000);
    bar.setRange(1, 2);
    expectProgress(1, 2, 2);
    bar.setValue(-5);
    expectProgress(1, 2, 1);
}

}  // namespace

}  // namespace pelk
