// What the Qt toolkit alone has: menu keys, how far a list scrolls, scale, colours, images, and its
// model of the tree.

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QImage>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QTreeView>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/plain_tool_tip.h"
#include "platform/desktop/qt/twip_scale.h"
#include "tests/controls/random_edits.h"
#include "tests/controls/shapes.h"
#include "tests/controls/window_fixture.h"

namespace pelk {
namespace {

using QtControls = WindowTest;

QWidget& native(Control& control) {
    return dynamic_cast<NativeWidget&>(control).nativeWidget();
}

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

TEST_F(QtControls, ARowOf250TwipsHoldsAButton) {
    const TwipScale scale = TwipScale::ofApplication();
    const int button = QPushButton("OK").sizeHint().height();
    for (int top = 0; top < 300; ++top)
        ASSERT_GE(scale.pixels(Rect{0, top, 1, 250}).height(), button) << top;
}

TEST_F(QtControls, PixelsSurviveTheWayThroughTwips) {
    for (const double pixelsPerTwip : {1.0 / 15, 0.0883, 0.1, 0.2})
        for (int pixels = -50; pixels < 4000; ++pixels) {
            const TwipScale scale(pixelsPerTwip);
            ASSERT_EQ(scale.pixels(scale.twips(pixels)), pixels) << pixelsPerTwip;
        }
}

TEST_F(QtControls, ImagesDifferInShape) {
    EXPECT_TRUE(treeIcon(TreeImage::None).isNull());
    std::vector<std::vector<bool>> shapes;
    for (const TreeImage image :
         {TreeImage::Contact, TreeImage::Many, TreeImage::One, TreeImage::Two, TreeImage::Three}) {
        const QImage picture =
            treeIcon(image).pixmap(QSize(16, 16), 1.0, QIcon::Selected).toImage();
        shapes.emplace_back();
        for (int pixel = 0; pixel < 256; ++pixel)
            shapes.back().push_back(picture.pixelColor(pixel % 16, pixel / 16).alpha() > 128);
    }
    expectDifferentShapes(shapes);
}

TEST_F(QtControls, WindowsBearTheProgramsIcon) {
    const QIcon icon = dynamic_cast<NativeWidget&>(*window_).nativeWidget().windowIcon();
    EXPECT_EQ(icon.cacheKey(), programIcon().cacheKey());
    EXPECT_EQ(icon.pixmap(QSize(32, 32), 1.0).toImage().pixelColor(16, 3).alpha(), 255);
}

void expectPaintedAsItStands(QTreeView& view) {
    QCoreApplication::processEvents();  // a scroll bar comes late
    const QImage shown = view.grab().toImage();
    view.doItemsLayout();
    ASSERT_EQ(shown, view.grab().toImage()) << "it is not what Qt finds when it looks again";
}

/// Qt's own checker of item models watches, and a view shows the model, while it is edited.
TEST_F(QtControls, TreeItemModelKeepsQtsRules) {
    TreeView& tree = window_->addTreeView({0, 0, 3000, 3000});
    auto& view = dynamic_cast<QTreeView&>(native(tree));
    const QAbstractItemModelTester tester(view.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    int changes = 0;
    QObject::connect(view.model(), &QAbstractItemModel::dataChanged, [&] { ++changes; });
    window_->show();
    editAtRandom(tree, driver_, [&view] { expectPaintedAsItStands(view); });
    EXPECT_GT(changes, 10) << "what changes is painted anew";

    int insertions = 0;
    QObject::connect(view.model(), &QAbstractItemModel::rowsInserted, [&] { ++insertions; });
    tree.model().clear();
    tree.model().suspendRedraw();
    for (int row = 0; row < 1000; ++row)
        tree.model().add(tree.model().add(tree.model().root()));
    tree.model().resumeRedraw();
    EXPECT_EQ(insertions, 1) << "what comes while redraw is suspended comes in one step";
}

/// Rows that come or go below an open node make Qt lay out all rows of the tree anew.
TEST_F(QtControls, NodesAreFilledBeforeQtLaysThemOut) {
    TreeView& tree = window_->addTreeView({0, 0, 3000, 3000});
    TreeModel& model = tree.model();
    TreeNode& node = model.add(model.root(), "node");
    model.add(node, "?");
    std::vector<const char*> filling = {"first", "second"};
    tree.onExpand = [&](TreeNode&) {
        model.removeChildren(node);
        for (const char* text : filling)
            model.add(node, text);
    };
    tree.onCollapse = [&](TreeNode&) {
        model.removeChildren(node);
        model.add(node, "?");
    };
    auto& view = dynamic_cast<QTreeView&>(native(tree));
    std::string heard;
    QObject::connect(view.model(), &QAbstractItemModel::rowsRemoved, [&] { heard += "-"; });
    QObject::connect(view.model(), &QAbstractItemModel::rowsInserted,
                     [&](QModelIndex index) { heard += view.isExpanded(index) ? "open" : "+"; });
    window_->show();
    driver_.expand(tree, {0});
    driver_.collapse(tree, {0});
    driver_.expand(tree, {0});
    EXPECT_EQ(heard, "+-+");
    driver_.collapse(tree, {0});
    filling.clear();
    driver_.expand(tree, {0});
    EXPECT_EQ(heard, "+-+-");
    expectPaintedAsItStands(view);
}

TEST(PlainToolTip, showsMarkupToTheLetter) {
    for (const char* text : {"<b>x</b>", "<img src='/etc/passwd'>", "a\nb  c & \"d\""}) {
        QTextDocument shown;
        shown.setHtml(plainToolTip(text));
        EXPECT_EQ(shown.toPlainText(), QString(text));
    }
    EXPECT_TRUE(Qt::mightBeRichText(plainToolTip("x")))
        << "as plain text it would show its own tags";
}

}  // namespace
}  // namespace pelk
