// The menu keys of the Qt toolkit, and how far it scrolls a list.

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <QWidget>

#include "platform/desktop/qt/control.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

class QtControls : public testing::Test {
 protected:
    static QWidget& native(Control& control) {
        return dynamic_cast<NativeWidget&>(control).nativeWidget();
    }

    TestPlatform platform_;
    std::unique_ptr<Window> window_ = platform_.toolkit().createWindow();
};

TEST_F(QtControls, AskForTheMenuAtTheSelectedRow) {
    TreeView& tree = window_->addTreeView({0, 0, 3000, 3000});
    std::vector<int> places;
    tree.onMenuRequest = [&](ScreenPoint where) {
        places.push_back(native(tree).mapFromGlobal(QPoint(where.x, where.y)).y());
    };
    for (int row = 0; row < 100; ++row)
        tree.model().add(tree.model().root(), "row");
    window_->show();
    // Qt makes an event of its own of the menu key.
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&native(tree), &menuKey);
    EXPECT_EQ(places.size(), 0u) << "nothing is selected";
    tree.select(tree.model().root().children()[1]);
    QCoreApplication::sendEvent(&native(tree), &menuKey);
    tree.select(tree.model().root().children()[99]);
    QTest::keyClick(&native(tree), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(places.size(), 2u);
    const int row = native(tree).fontMetrics().height();
    EXPECT_NEAR(places[0], row * 3 / 2, row);
    EXPECT_NEAR(places[1], native(tree).height() - row / 2, row);
}

TEST_F(QtControls, ScrollAListAsFarAsItsWidestRow) {
    ListView& list = window_->addListView({0, 0, 3000, 3000});
    const QScrollBar& bar = *dynamic_cast<QListView&>(native(list)).horizontalScrollBar();
    window_->show();
    const auto reach = [&](const std::string& text) {
        list.addRow({text, ""});
        QCoreApplication::processEvents();
        return bar.maximum();
    };
    EXPECT_EQ(reach("short"), 0);
    const std::string longer(100, 'm');
    EXPECT_NEAR(reach(longer) + bar.width(),
                native(list).fontMetrics().horizontalAdvance(longer.c_str()), 20);
}

}  // namespace

}  // namespace pelk
