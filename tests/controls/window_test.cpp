// What every toolkit must do with windows.

#include "platform/error.h"
#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

class Windows : public WindowTest {
 protected:
    Windows() {
        window_->setInnerSize({6000, 3000});
        window_->onResize = [this] { ++resizes_; };
    }

    bool isVisible() {
        EXPECT_EQ(driver_.isVisible(*window_), window_->isVisible());
        return window_->isVisible();
    }
    void expectSize(Size expected, int resizes) {
        driver_.settle();
        const Size found = window_->innerSize();
        EXPECT_NEAR(found.width, expected.width, 8);
        EXPECT_NEAR(found.height, expected.height, 8);
        EXPECT_EQ(resizes_, resizes);
    }

    int resizes_ = 0;
};

TEST_F(Windows, TellOfSizesThatCodeHasNotSet) {
    expectSize({6000, 3000}, 0);
    window_->show();
    expectSize({6000, 3000}, 1);
    driver_.resize(*window_, {7000, 3500});
    expectSize({7000, 3500}, 2);

    // No setter calls a handler, neither now nor when the window is shown again.
    window_->setInnerSize({5000, 2500});
    expectSize({5000, 2500}, 2);
    window_->hide();
    window_->setInnerSize({5500, 2500});
    window_->show();
    expectSize({5500, 2500}, 2);

    window_->setMinimumInnerSize({4000, 2000});
    driver_.resize(*window_, {1000, 1000});
    expectSize({4000, 2000}, 3);
}

TEST_F(Windows, HaveStripsOutsideTheInnerArea) {
    int clicks = 0;
    const auto add = [&](int top) -> Button& {
        Button& button = window_->addButton({0, top, 1000, 250}, "OK");
        button.onClick = [&clicks] { ++clicks; };
        return button;
    };
    Button& inside = add(0);
    window_->setMinimumInnerSize({4000, 2000});
    window_->setStrips(330, 250);
    Button& above = add(-290);
    Button& below = add(3000);
    window_->show();
    expectSize({6000, 3000}, 1);
    for (const auto& [button, top] : {std::pair(&inside, 0), {&above, -290}, {&below, 3000}}) {
        EXPECT_NEAR(button->bounds().top, top, 16);
        EXPECT_NEAR(driver_.boundsOf(*button).top, top, 16);
        driver_.click(*button);
    }
    EXPECT_EQ(clicks, 3) << "each is where the user can click it";
    driver_.resize(*window_, {1000, 1000});
    expectSize({4000, 2000}, 2);
    window_->setStrips(0, 250);
    expectSize({4000, 2000}, 2);
    EXPECT_NEAR(driver_.boundsOf(inside).top, 0, 16);
    window_->setStrips(0, 0);
    driver_.click(inside);
    EXPECT_EQ(clicks, 4);
}

TEST_F(Windows, AreCreatedHiddenAndClosedUnlessTheHandlerRefuses) {
    window_->setCaption("Relations [*] & Åsa");
    EXPECT_EQ(driver_.captionOf(*window_), "Relations [*] & Åsa");
    EXPECT_FALSE(isVisible());
    window_->show();
    window_->show();
    driver_.press(*window_, Key::Escape);
    EXPECT_FALSE(isVisible()) << "Esc closes a window";
    window_->show();
    driver_.close(*window_);
    EXPECT_FALSE(isVisible());

    int requests = 0;
    window_->onCloseRequest = [&requests] { return ++requests == 2; };
    window_->show();
    driver_.press(*window_, Key::Escape);
    EXPECT_TRUE(isVisible());
    driver_.close(*window_);
    EXPECT_FALSE(isVisible());
    window_->show();
    window_->hide();
    EXPECT_FALSE(isVisible());
    EXPECT_EQ(requests, 2) << "code that hides a window asks nobody";
}

TEST_F(Windows, ModalOnesKeepTheUserFromAllOthers) {
    int clicks = 0;
    Button& outer = window_->addButton({0, 0, 1000, 250}, "outer");
    const auto modal = platform_.toolkit().createWindow();
    modal->setInnerSize({3000, 1000});
    Button& inner = modal->addButton({0, 0, 1000, 250}, "inner");
    inner.onClick = [&] { modal->hide(); };
    outer.onClick = [&] {
        ++clicks;
        driver_.later([&] {
            driver_.click(outer);
            driver_.close(*window_);
            driver_.click(inner);
        });
        modal->showModal();
        EXPECT_FALSE(driver_.isVisible(*modal));
    };
    modal->show();  // not modal yet
    window_->show();
    driver_.click(outer);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(isVisible());
    driver_.click(outer);
    EXPECT_EQ(clicks, 2) << "the other window is free again, and the modal one opens again";
}

TEST_F(Windows, ModalOnesEndHoweverTheyAreHidden) {
    int requests = 0;
    window_->onCloseRequest = [&requests] { return ++requests == 2; };
    driver_.later([this] {
        driver_.press(*window_, Key::Escape);
        EXPECT_TRUE(isVisible());
        driver_.press(*window_, Key::Escape);
    });
    window_->showModal();
    EXPECT_EQ(requests, 2);

    window_->onCloseRequest = []() -> bool { throw Error("Nothing is saved."); };
    platform_.dialogs.expectMessage("Nothing is saved.");
    driver_.later([this] { driver_.close(*window_); });
    window_->showModal();
    EXPECT_FALSE(isVisible()) << "a handler that fails keeps nobody in the window";

    window_->show();
    driver_.later([this] { window_->hide(); });
    window_->showModal();
    EXPECT_FALSE(isVisible());

    const auto brief = platform_.toolkit().createWindow();
    brief->onResize = [&brief] { brief->hide(); };
    brief->showModal();
    EXPECT_FALSE(driver_.isVisible(*brief));
}

TEST_F(Windows, RunTheActsOfTheirShortcutsWhateverHasTheFocus) {
    std::vector<std::string> ran;
    const auto otherWindow = platform_.toolkit().createWindow();
    TreeView& tree = window_->addTreeView({0, 0, 3000, 2000});
    tree.model().add(tree.model().root(), "f");
    for (const auto& [shortcut, keys] : kShortcutKeys) {
        const std::string act = std::to_string(static_cast<int>(shortcut));
        window_->setShortcut(shortcut, [&ran, act] { ran.push_back(act); });
        otherWindow->setShortcut(shortcut, [&ran] { ran.push_back("the other window's"); });
    }
    TextBox& box = window_->addTextBox({0, 2000, 3000, 250});
    window_->show();
    const auto press = [&](Control& focused) {
        driver_.giveFocus(focused);
        ran.clear();
        for (const auto& [shortcut, keys] : kShortcutKeys)
            driver_.press(*window_, std::string(keys));
        return ran;
    };
    EXPECT_EQ(press(tree), (std::vector<std::string>{"0", "1", "2", "3", "4", "5", "5", "6"}));
    EXPECT_EQ(press(box), (std::vector<std::string>{"0", "1", "2", "3", "6"}));
    EXPECT_TRUE(isVisible()) << "Esc has an act of its own";
    ran.clear();
    driver_.press(*window_, "/");
    EXPECT_EQ(box.text(), "/");
    driver_.giveFocus(tree);
    driver_.press(*window_, "/");
    EXPECT_EQ(ran, (std::vector<std::string>{"3"})) << "it finds, except in a text box";
    box.setText("");
    driver_.type(box, "x");
    driver_.press(*window_, "Ctrl+Z");
    EXPECT_EQ(box.text(), "");

    window_->setShortcut(Shortcut::Refresh, [] { throw Error("The disk is full."); });
    platform_.dialogs.expectMessage("The disk is full.");
    driver_.press(*window_, "F5");
}

TEST_F(Windows, AppearWithinTheScreenAndWhereTheyWereLast) {
    window_->setMinimumInnerSize({90000, 90000});
    window_->setInnerSize({90000, 90000});
    int hidings = 0;
    window_->onHide = [&hidings] { ++hidings; };
    window_->show();
    driver_.settle();
    EXPECT_LT(window_->innerSize().width, 90000);
    EXPECT_LT(window_->innerSize().height, 90000);
    driver_.close(*window_);
    window_->hide();
    EXPECT_EQ(hidings, 1);

    const auto other = platform_.toolkit().createWindow();
    other->setPlace("40 60 500 400");
    other->setPlace("nowhere");
    other->setPlace("40 60 500 400");
    other->show();
    driver_.settle();
    EXPECT_EQ(other->place(), "40 60 500 400");
    other->hide();
    other->setPlace("-50000 50000 500 400");
    other->show();
    driver_.settle();
    const std::string moved = other->place();
    EXPECT_FALSE(moved.starts_with('-')) << moved;
    EXPECT_TRUE(moved.ends_with(" 500 400")) << moved;
}

TEST_F(Windows, AreBusyButWhereTheArrowIsKept) {
    const auto other = platform_.toolkit().createWindow();
    Button& outside = other->addButton({0, 0, 1000, 250}, "outside");
    Button& kept = window_->addButton({0, 0, 1000, 250}, "Cancel");
    std::vector<Control*> controls = {&window_->addLabel({0, 300, 1000, 250}, "text"),
                                      &window_->addButton({1000, 0, 1000, 250}, "OK"),
                                      &window_->addTextBox({1000, 300, 1000, 250}),
                                      &window_->addListView({0, 600, 1000, 1000}),
                                      &window_->addTreeView({1000, 600, 1000, 1000})};
    kept.keepArrowPointer();
    window_->show();
    for (const bool busy : {true, true, false}) {
        window_->setBusyPointer(busy);
        for (Control* control : controls)
            EXPECT_EQ(driver_.pointerOver(*control), busy ? Pointer::Busy : Pointer::Arrow);
        EXPECT_EQ(driver_.pointerOver(kept), Pointer::Arrow);
    }
    window_->setBusyPointer(true);
    other->show();
    EXPECT_EQ(driver_.pointerOver(outside), Pointer::Arrow);
}

}  // namespace
}  // namespace pelk
