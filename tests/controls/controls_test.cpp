// What every toolkit must do with the simple controls and the places of all.

#include <stdexcept>

#include "platform/error.h"
#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

class Controls : public WindowTest {
 protected:
    Controls() { window_->setInnerSize({6000, 3000}); }

    int clicks_ = 0;
};

TEST_F(Controls, ShowTheirTextsAsTheyAre) {
    Label& label = window_->addLabel({0, 0, 3000, 250}, "gyp & <b>Åsa</b>");
    Button& button = window_->addButton({0, 300, 2000, 250}, "Find && &go");
    window_->show();
    EXPECT_EQ(driver_.textOf(label), "gyp & <b>Åsa</b>");
    EXPECT_EQ(driver_.textOf(button), "Find & go");
    EXPECT_TRUE(driver_.showsWholeText(label));
    EXPECT_TRUE(driver_.showsWholeText(button));

    label.setText(
        "a text that takes more than the one line it is given, in whichever font it is shown");
    EXPECT_FALSE(driver_.showsWholeText(label));
    label.setBounds({0, 0, 3000, 1000});
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
        for (const auto side : {&Rect::left, &Rect::top, &Rect::width, &Rect::height})
            EXPECT_NEAR(found.*side, put.*side, 16) << "more than a pixel";
        EXPECT_EQ(driver_.boundsOf(upper), found);
        EXPECT_EQ(found.left + found.width, lower.bounds().left) << "they no longer touch";
        EXPECT_EQ(found.top + found.height, lower.bounds().top) << "they no longer touch";
        upper.setBounds(found);
        EXPECT_EQ(upper.bounds(), found) << "what is read and put back moves";
    }
}

TEST_F(Controls, AreClickedUnlessDisabledAndShowWhatTheirHandlersThrow) {
    Button& button = window_->addButton({0, 0, 1000, 250}, "OK");
    window_->show();
    driver_.click(button);
    button.onClick = [&] {
        button.onClick = nullptr;
        window_->hide();
        ++clicks_;
    };
    button.setEnabled(false);
    EXPECT_FALSE(driver_.isEnabled(button));
    driver_.click(button);
    EXPECT_EQ(clicks_, 0);
    button.setEnabled(true);
    driver_.click(button);
    EXPECT_EQ(clicks_, 1);
    EXPECT_FALSE(driver_.isVisible(*window_));

    window_->show();
    button.onClick = [] { throw Error("The disk is full."); };
    platform_.dialogs.expectMessage("The disk is full.");
    driver_.click(button);
    button.onClick = [] { throw std::runtime_error("seven"); };
    platform_.dialogs.expectMessage("Unexpected error: seven");
    driver_.click(button);
}

TEST_F(Controls, AreReachedByTabInTheOrderOfTheirCreation) {
    Button& first = window_->addButton({0, 1000, 1000, 250}, "lower");
    Button& second = window_->addButton({0, 0, 1000, 250}, "upper");
    TreeView& third = window_->addTreeView({0, 1500, 6000, 1500});
    second.onClick = [this] { ++clicks_; };
    window_->show();
    driver_.giveFocus(first);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(second));
    driver_.press(*window_, Key::Enter);
    EXPECT_EQ(clicks_, 1);
    driver_.press(*window_, Key::Tab);
    EXPECT_TRUE(driver_.hasFocus(third));
}

TEST_F(Controls, ButtonsHaveAccessKeys) {
    std::string pressed;
    for (const char* caption : {"Go", "Group && go", "&Remove", "Rest"})
        window_->addButton({0, 0, 1000, 250}, caption).onClick = [&pressed, caption] {
            pressed += caption + std::string(";");
        };
    window_->addOptionButton({0, 500, 1000, 250}, "Options").onClick = [&] { pressed += "O;"; };
    window_->show();
    for (const char* keys : {"Alt+G", "Alt+R", "Alt+E", "Alt+U", "Alt+O"})
        driver_.press(*window_, keys);
    EXPECT_EQ(pressed, "Go;&Remove;Rest;Group && go;O;");
}

TEST_F(Controls, EnterPressesTheDefaultButtonUnlessAnotherHasTheFocus) {
    std::string pressed;
    Button& other = window_->addButton({0, 0, 1000, 250}, "Other");
    Button& standard = window_->addButton({0, 500, 1000, 250}, "OK");
    TextBox& box = window_->addTextBox({0, 1000, 1000, 250});
    Slider& slider = window_->addSlider({0, 1500, 1000, 250});
    other.onClick = [&] { pressed += "other;"; };
    standard.onClick = [&] { pressed += "default;"; };
    window_->setDefaultButton(standard);
    window_->show();
    for (Control* focused : std::initializer_list<Control*>{&standard, &slider, &other, &box}) {
        driver_.giveFocus(*focused);
        driver_.press(*window_, Key::Enter);
    }
    EXPECT_EQ(pressed, "default;default;other;default;");
    standard.setEnabled(false);
    driver_.press(*window_, Key::Enter);
    EXPECT_EQ(pressed, "default;default;other;default;");
}

TEST_F(Controls, PicturesShowTheirImage) {
    const auto all = {TreeImage::Contact, TreeImage::Many, TreeImage::One, TreeImage::Two,
                      TreeImage::Three};
    std::vector<Picture*> pictures;
    for (const TreeImage image : all)
        pictures.push_back(
            &window_->addPicture({400 * static_cast<int>(image), 0, 300, 300}, image));
    window_->show();
    for (const TreeImage image : all)
        EXPECT_EQ(driver_.imageOf(*pictures[static_cast<std::size_t>(image) - 1]), image);
}

TEST_F(Controls, OneOptionAtMostIsChecked) {
    OptionButton& first = window_->addOptionButton({0, 0, 2000, 250}, "Keep && &go");
    window_->addLabel({0, 250, 2000, 250}, "or");
    OptionButton& second = window_->addOptionButton({0, 500, 2000, 250}, "second");
    first.onClick = [this] { ++clicks_; };
    second.onClick = [] { throw Error("Not now."); };
    window_->show();
    const auto checked = [&] {
        return std::pair(driver_.isChecked(first), driver_.isChecked(second));
    };
    EXPECT_EQ(driver_.textOf(first), "Keep & go");
    EXPECT_TRUE(driver_.showsWholeText(first));
    EXPECT_EQ(checked(), std::pair(false, false));
    first.setChecked(true);
    EXPECT_EQ(checked(), std::pair(true, false));
    second.setChecked(true);
    EXPECT_EQ(checked(), std::pair(false, true));
    second.setChecked(false);
    EXPECT_EQ(checked(), std::pair(false, false));

    EXPECT_EQ(clicks_, 0);
    driver_.click(first);
    driver_.click(first);
    EXPECT_EQ(clicks_, 2);
    EXPECT_EQ(checked(), std::pair(true, false));
    first.setEnabled(false);
    platform_.dialogs.expectMessage("Not now.");
    driver_.click(second);
    driver_.click(first);
    EXPECT_EQ(checked(), std::pair(false, true));
    EXPECT_EQ(clicks_, 2);
}

TEST_F(Controls, TextBoxesTellOfWhatTheUserEdits) {
    TextBox& box = window_->addTextBox({0, 0, 3000, 250});
    std::vector<std::string> heard;
    box.onChange = [&] { heard.push_back(box.text()); };
    window_->show();
    box.setText("<b>Åsa</b> & co");
    EXPECT_EQ(driver_.textOf(box), "<b>Åsa</b> & co");
    EXPECT_EQ(heard.size(), 0u);
    driver_.type(box, "Öl€");
    EXPECT_EQ(heard, (std::vector<std::string>{"Ö", "Öl", "Öl€"}));
    driver_.type(box, "");
    EXPECT_EQ(heard.back(), "");
    EXPECT_EQ(driver_.textOf(box), "");
    box.onChange = [] { throw Error("Too long."); };
    platform_.dialogs.expectMessage("Too long.");
    driver_.type(box, "&");
    EXPECT_EQ(box.text(), "&");
}

TEST_F(Controls, TextBoxesTakeTheKeysThatHaveHandlers) {
    TextBox& box = window_->addTextBox({0, 0, 3000, 250});
    Button& next = window_->addButton({0, 500, 1000, 250}, "next");
    std::string heard;
    window_->setShortcut(Shortcut::Escape, [&heard] { heard += "window "; });
    window_->show();
    box.setPlaceholder("Find Åsa");
    EXPECT_EQ(driver_.textOf(box), "") << "a hint is no text";
    box.setText("Bo");
    next.focus();
    EXPECT_TRUE(driver_.hasFocus(next));
    int focused = 0;
    box.onFocus = [&focused] { ++focused; };
    driver_.settle();
    driver_.giveFocus(box);
    EXPECT_EQ(focused, 1);
    box.focus();
    EXPECT_TRUE(driver_.hasFocus(box));
    EXPECT_EQ(driver_.selectedTextOf(box), "Bo");
    const auto press = [&] {
        for (const Key key : {Key::Escape, Key::Enter, Key::Up, Key::Down})
            driver_.press(*window_, key);
        return std::exchange(heard, "");
    };
    EXPECT_EQ(press(), "window ");
    box.onEscape = [&heard] { heard += "Esc "; };
    box.onEnter = [&heard] { heard += "Enter "; };
    box.onStep = [&heard](int step) { heard += std::to_string(step) + " "; };
    EXPECT_EQ(press(), "Esc Enter -1 1 ");
    EXPECT_EQ(box.text(), "Bo");
    box.onEnter = [] { throw Error("Nothing is found."); };
    platform_.dialogs.expectMessage("Nothing is found.");
    driver_.press(*window_, Key::Enter);
}

TEST_F(Controls, SlidersTellOfEachStep) {
    Slider& slider = window_->addSlider({0, 0, 3000, 300});
    std::vector<int> heard;
    slider.onChange = [&] { heard.push_back(slider.value()); };
    window_->show();
    slider.setRange(0, 100);
    slider.setValue(500);
    EXPECT_EQ(driver_.valueOf(slider), 100);
    slider.setRange(-10, 40);
    EXPECT_EQ(slider.value(), 40);
    slider.setValue(5);
    EXPECT_EQ(heard.size(), 0u);
    driver_.move(slider, 7);
    driver_.move(slider, 6);
    EXPECT_EQ(heard, (std::vector<int>{6, 7, 6}));
    EXPECT_EQ(driver_.valueOf(slider), 6);
    slider.onChange = [] { throw Error("Stuck."); };
    platform_.dialogs.expectMessage("Stuck.");
    driver_.move(slider, 5);
}

TEST_F(Controls, ProgressStaysInItsRange) {
    ProgressBar& bar = window_->addProgressBar({0, 0, 6000, 250});
    window_->show();
    bar.setRange(1, 40000);
    EXPECT_EQ(driver_.progressOf(bar), (Progress{1, 40000, 1}));
    for (const auto& [maximum, value, shown] :
         {std::tuple(40000, 50000, 40000), {40000, 7, 7}, {3, 7, 3}, {3, -5, 1}}) {
        bar.setRange(1, maximum);
        bar.setValue(value);
        EXPECT_EQ(driver_.progressOf(bar), (Progress{1, maximum, shown}));
    }
}

TEST_F(Controls, ProgressIsFullAtItsMaximumEvenInARangeOfOneValue) {
    ProgressBar& bar = window_->addProgressBar({0, 0, 6000, 250});
    window_->show();
    const auto look = [&](int maximum, int value) {
        bar.setRange(1, maximum);
        bar.setValue(value);
        EXPECT_EQ(driver_.progressOf(bar), (Progress{1, maximum, value}));
        return driver_.pictureOf(bar);
    };
    const auto full = look(2, 2);
    const auto empty = look(2, 1);
    EXPECT_NE(full, empty);
    EXPECT_EQ(look(1, 1), full);
    EXPECT_EQ(look(2, 1), empty);
}

}  // namespace
}  // namespace pelk
