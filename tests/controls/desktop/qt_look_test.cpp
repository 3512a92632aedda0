// What the Qt toolkit draws of its own: scale, colours, images; and its model of the tree.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QImage>
#include <QPushButton>
#include <QTreeView>
#include <algorithm>
#include <cmath>
#include <random>

#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/tree_view.h"
#include "platform/desktop/qt/twip_scale.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

TEST(QtLook, ARowOf250TwipsHoldsAButton) {
    const TwipScale scale = TwipScale::ofApplication();
    const int button = QPushButton("OK").sizeHint().height();
    for (int top = 0; top < 300; ++top)
        ASSERT_GE(scale.pixels(Rect{0, top, 1, 250}).height(), button) << top;
}

TEST(QtLook, PixelsSurviveTheWayThroughTwips) {
    for (const double pixelsPerTwip : {1.0 / 15, 0.0883, 0.1, 0.2})
        for (int pixels = -50; pixels < 4000; ++pixels) {
            const TwipScale scale(pixelsPerTwip);
            ASSERT_EQ(scale.pixels(scale.twips(pixels)), pixels) << pixelsPerTwip;
        }
}

/// What of a picture of 16 pixels is drawn, colours apart.
std::vector<bool> shapeOf(const QIcon& icon) {
    const QImage image = icon.pixmap(QSize(16, 16), 1.0, QIcon::Selected).toImage();
    std::vector<bool> shape;
    for (int pixel = 0; pixel < 256; ++pixel)
        shape.push_back(image.pixelColor(pixel % 16, pixel / 16).alpha() > 128);
    return shape;
}

TEST(QtLook, ImagesDifferInShape) {
    EXPECT_TRUE(treeIcon(TreeImage::None).isNull());
    std::vector<std::vector<bool>> shapes;
    for (const TreeImage image :
         {TreeImage::Contact, TreeImage::Many, TreeImage::One, TreeImage::Two, TreeImage::Three}) {
        shapes.push_back(shapeOf(treeIcon(image)));
        EXPECT_GT(std::count(shapes.back().begin(), shapes.back().end(), true), 30);
        for (std::size_t other = 0; other + 1 < shapes.size(); ++other) {
            int different = 0;
            for (std::size_t pixel = 0; pixel < 256; ++pixel)
                different += shapes[other][pixel] != shapes.back()[pixel];
            EXPECT_GT(different, 10) << other << " and " << shapes.size() - 1;
        }
    }
}

TEST(QtLook, WindowsBearTheProgramsIcon) {
    TestPlatform platform;
    const auto window = platform.toolkit().createWindow();
    const QIcon icon = dynamic_cast<NativeWidget&>(*window).nativeWidget().windowIcon();
    EXPECT_EQ(icon.cacheKey(), programIcon().cacheKey());
    EXPECT_EQ(icon.pixmap(QSize(32, 32), 1.0).toImage().pixelColor(16, 3).alpha(), 255);
}

/// Qt's own checker of item models watches, and a view shows the model, while it is edited.
TEST(QtLook, TreeItemModelKeepsQtsRules) {
    ScriptedDialogs dialogs;
    const auto language = makeLanguage();
    QWidget window;
    QtTreeView tree(window, TwipScale(0.1), dialogs, *language);
    auto& view = dynamic_cast<QTreeView&>(tree.nativeWidget());
    const QAbstractItemModelTester tester(view.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    int changes = 0;
    QObject::connect(view.model(), &QAbstractItemModel::dataChanged, [&] { ++changes; });
    TreeModel& model = tree.model();
    std::mt19937 random(7);
    const auto below = [&random](std::size_t count) { return random() % count; };
    const auto anyNode = [&]() -> TreeNode& {
        TreeNode* node = &model.root();
        while (!node->children().empty() && below(4) != 0)
            node = node->children()[below(node->children().size())];
        return *node;
    };
    window.resize(300, 300);
    tree.setBounds({0, 0, 3000, 3000});
    window.show();
    for (int step = 0; step < 1500; ++step) {
        TreeNode& node = anyNode();
        const auto act = below(13);
        if (act < 5)
            model.add(node, std::to_string(below(1000)));
        else if (act == 5)
            tree.select(&node);
        else if (act == 6 && node.parent() != nullptr)
            model.remove(node);
        else if (act == 7)
            model.sortChildren(node);
        else if (act == 8)
            model.suspendRedraw();
        else if (act == 9)
            model.resumeRedraw();
        else if (act == 10 && below(20) == 0)
            below(2) == 0 ? model.clear() : model.removeChildren(node);
        else if (act == 12)
            tree.setExpanded(node, below(3) != 0);
        else if (node.parent() != nullptr)
            model.setText(node, "x");
        if (step % 50 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_GT(changes, 10) << "what changes is painted anew";
}

}  // namespace

}  // namespace pelk
