// What every toolkit must do with windows.

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

class Windows : public testing::Test {
 protected:
    Windows() {
        window_->setInnerSize({6000, 3000});
        window_->onResize = [this] { ++resizes_; };
    }

    void expectInnerSize(Size expected) {
        const Size found = window_->innerSize();
        EXPECT_NEAR(found.width, expected.width, 8);
        EXPECT_NEAR(found.height, expected.height, 8);
    }

    TestPlatform platform_;
    Driver& driver_ = platform_.driver();
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
    int resizes_ = 0;
};

TEST_F(Windows, AreCreatedHiddenAndShownOnRequest) {
    window_->setCaption("Relations [*] & Åsa");
    EXPECT_EQ(driver_.captionOf(*window_), "Relations [*] & Åsa");
    EXPECT_FALSE(driver_.isVisible(*window_));
    EXPECT_FALSE(window_->isVisible());
    for (int i = 0; i < 2; ++i) {
        window_->show();
        EXPECT_TRUE(driver_.isVisible(*window_));
        EXPECT_TRUE(window_->isVisible());
    }
    window_->hide();
    EXPECT_FALSE(driver_.isVisible(*window_));
}

TEST_F(Windows, TellOfSizesThatCodeHasNotSet) {
    expectInnerSize({6000, 3000});
    EXPECT_EQ(resizes_, 0);
    window_->show();
    driver_.settle();
    EXPECT_EQ(resizes_, 1) << "when first shown";
    expectInnerSize({6000, 3000});

    driver_.resize(*window_, {7000, 3500});
    EXPECT_EQ(resizes_, 2);
    expectInnerSize({7000, 3500});

    window_->setInnerSize({5000, 2500});
    window_->hide();
    window_->setInnerSize({5500, 2500});
    window_->show();
    driver_.settle();
    expectInnerSize({5500, 2500});
    EXPECT_EQ(resizes_, 2) << "no setter calls a handler";

    window_->setMinimumInnerSize({4000, 2000});
    driver_.resize(*window_, {1000, 1000});
    expectInnerSize({4000, 2000});
    EXPECT_EQ(resizes_, 3);
    window_->onResize = nullptr;
    driver_.resize(*window_, {5000, 3000});
}

TEST_F(Windows, AreHiddenByTheirCloseButtonUnlessTheHandlerRefuses) {
    window_->show();
    driver_.press(*window_, Key::Escape);
    EXPECT_TRUE(driver_.isVisible(*window_)) << "Esc closes modal windows only";
    driver_.close(*window_);
    EXPECT_FALSE(driver_.isVisible(*window_));

    int requests = 0;
    bool answer = false;
    window_->onCloseRequest = [&] {
        ++requests;
        return answer;
    };
    window_->show();
    driver_.close(*window_);
    EXPECT_TRUE(driver_.isVisible(*window_));
    answer = true;
    driver_.close(*window_);
    EXPECT_FALSE(driver_.isVisible(*window_));
    window_->show();
    window_->hide();
    EXPECT_EQ(requests, 2) << "code that hides a window asks nobody";

    window_->onCloseRequest = [this]() -> bool {
        window_->hide();
        throw Error("Nothing is saved.");
    };
    platform_.dialogs.expectMessage("Nothing is saved.");
    window_->show();
    driver_.close(*window_);
    EXPECT_FALSE(driver_.isVisible(*window_));
}

TEST_F(Windows, AreNotLockedByACloseHandlerThatFails) {
    window_->onCloseRequest = []() -> bool { throw Error("Nothing is saved."); };
    platform_.dialogs.expectMessage("Nothing is saved.");
    driver_.later([this] { driver_.close(*window_); });
    window_->showModal();
    EXPECT_FALSE(driver_.isVisible(*window_));
}

TEST_F(Windows, ModalOnesKeepTheUserFromAllOthers) {
    int outerClicks = 0;
    int innerClicks = 0;
    Button& outer = window_->addButton({0, 0, 1000, 250}, "outer");
    const auto modal = platform_.toolkit().createWindow();
    modal->setInnerSize({3000, 1000});
    Button& inner = modal->addButton({0, 0, 1000, 250}, "inner");
    inner.onClick = [&] {
        ++innerClicks;
        modal->hide();
    };
    outer.onClick = [&] {
        ++outerClicks;
        driver_.later([&] {
            EXPECT_TRUE(driver_.isVisible(*modal));
            driver_.click(outer);
            driver_.close(*window_);
            driver_.click(inner);
        });
        modal->showModal();
        EXPECT_FALSE(driver_.isVisible(*modal));
        EXPECT_EQ(innerClicks, outerClicks);
    };
    modal->show();  // not modal yet
    window_->show();
    driver_.click(outer);
    EXPECT_EQ(outerClicks, 1);
    EXPECT_TRUE(driver_.isVisible(*window_));
    driver_.click(outer);
    EXPECT_EQ(outerClicks, 2) << "the other window is free again, and the modal one opens again";
}

TEST_F(Windows, ModalOnesEndHoweverTheyAreHidden) {
    int requests = 0;
    window_->onCloseRequest = [&] { return ++requests == 2; };
    driver_.later([&] {
        driver_.press(*window_, Key::Escape);
        EXPECT_TRUE(driver_.isVisible(*window_));
        driver_.press(*window_, Key::Escape);
    });
    window_->showModal();
    EXPECT_EQ(requests, 2);

    window_->show();
    driver_.later([&] { window_->hide(); });
    window_->showModal();
    EXPECT_FALSE(driver_.isVisible(*window_));

    const auto brief = platform_.toolkit().createWindow();
    brief->onResize = [&] { brief->hide(); };
    brief->showModal();
    EXPECT_FALSE(driver_.isVisible(*brief));

    window_->show();
    driver_.press(*window_, Key::Escape);
    EXPECT_TRUE(driver_.isVisible(*window_)) << "it is modal no longer";
}

}  // namespace

}  // namespace pelk
