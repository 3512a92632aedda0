// What every toolkit must do with the menu of a button.

#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

using Looks = std::vector<std::string>;

TEST_F(WindowTest, AMenuOpensBelowAButtonAndShowsTheStateOfItsItems) {
    window_->setInnerSize({3000, 2000});
    Button& button = window_->addButton({0, 0, 1000, 250}, "Options");
    PopupMenu& menu = window_->addPopupMenu();
    std::string chosen;
    button.onClick = [&] { menu.openBelow(button); };
    window_->show();
    EXPECT_EQ(driver_.menuOf(button), Looks()) << "there is nothing to show";

    menu.addSeparator();
    MenuItem& byName = menu.addItem("By name");
    MenuItem& byStrength = menu.addItem("By strength");
    menu.addSeparator();
    menu.addSeparator();
    MenuItem& undo = menu.addItem("Undo");
    menu.addSeparator();
    byStrength.onClick = [&] { chosen += "s"; };
    undo.onClick = [&] { chosen += "u"; };
    byName.setChecked(true);
    undo.setCaption("Undo \"R&D\"");
    EXPECT_EQ(driver_.menuOf(button), (Looks{"*By name", "By strength", "-", "Undo \"R&D\""}));
    driver_.chooseIn(button, "By strength");
    driver_.chooseIn(button, "Undo \"R&D\"");
    EXPECT_EQ(chosen, "su");

    driver_.chooseIn(button, "*By name");
    EXPECT_EQ(driver_.menuOf(button).at(0), "*By name") << "only code changes the mark";
    byName.setChecked(false);
    byStrength.setChecked(true);
    undo.setEnabled(false);
    EXPECT_EQ(driver_.menuOf(button), (Looks{"By name", "*By strength", "-", "(Undo \"R&D\")"}));
    undo.setVisible(false);
    EXPECT_EQ(driver_.menuOf(button), (Looks{"By name", "*By strength"}));
}

}  // namespace
}  // namespace pelk
