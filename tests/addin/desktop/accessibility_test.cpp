// What a screen reader finds in a tree.

#include <gtest/gtest.h>

#include <QAccessible>

#include "platform/desktop/qt/control.h"
#include "tests/support/test_platform.h"

namespace pelk {
namespace {

TEST(TreeAccessibility, aRelationIsSpokenWithItsStrength) {
    TestPlatform platform;
    const auto window = platform.toolkit().createWindow();
    TreeView& tree = window->addTreeView({0, 0, 3000, 3000});
    TreeNode& node = tree.model().add(tree.model().root(), "Ann");
    tree.model().setImage(node, TreeImage::Two);
    window->setCaption("Relations");
    window->show();
    QAccessibleInterface& spoken =
        *QAccessible::queryAccessibleInterface(&dynamic_cast<NativeWidget&>(tree).nativeWidget());
    EXPECT_EQ(spoken.text(QAccessible::Name).toStdString(), "Relations");
    const QAccessibleInterface& row = *spoken.child(spoken.childCount() - 1);
    EXPECT_EQ(row.text(QAccessible::Name).toStdString(), "Ann, medium relation");
}

}  // namespace
}  // namespace pelk
