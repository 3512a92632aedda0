// What a screen reader finds in each form, and the access keys of its buttons.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QKeySequence>
#include <set>

#include "addin/aboutForm.h"
#include "addin/configForm.h"
#include "links/ShowFindFormDomains.h"
#include "links/ShowFindFormSimple.h"
#include "links/findForm.h"
#include "links/findFormDomain.h"
#include "maintenance/DetailsForm.h"
#include "maintenance/OthersForm.h"
#include "maintenance/ShowFormSingle.h"
#include "maintenance/mergeForm.h"
#include "platform/desktop/qt/control.h"
#include "scan/ParseForm.h"
#include "tests/support/core_platform.h"
#include "views/ShowForm.h"

namespace pelk {
namespace {

const std::set<QAccessible::Role> kRoles = {
    QAccessible::StaticText,   QAccessible::Graphic, QAccessible::PushButton,
    QAccessible::RadioButton,  QAccessible::Tree,    QAccessible::List,
    QAccessible::EditableText, QAccessible::Slider,  QAccessible::ProgressBar};

void expectReadable(Window& window) {
    window.show();
    QWidget& widget = dynamic_cast<NativeWidget&>(window).nativeWidget();
    std::set<QString> keys;
    for (const QWidget* control :
         widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control->isWindow() || !control->isVisible())
            continue;
        const QAccessibleInterface& spoken =
            *QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
        const std::string name = spoken.text(QAccessible::Name).toStdString();
        EXPECT_TRUE(kRoles.contains(spoken.role())) << spoken.role() << " " << name;
        const auto* const button = qobject_cast<const QAbstractButton*>(control);
        EXPECT_TRUE(!name.empty() || spoken.role() == QAccessible::StaticText) << spoken.role();
        if (button != nullptr) {
            const QString key = QKeySequence::mnemonic(button->text()).toString();
            EXPECT_TRUE(!key.isEmpty() && keys.insert(key).second) << name;
        }
    }
    window.hide();
}

class Accessibility : public testing::Test {
 protected:
    CorePlatform core;
    Toolkit& kit = core.toolkit();
};

TEST_F(Accessibility, everyControlHasANameAndARole) {
    expectReadable(*ParseForm(core.ui(), core.platform(), core.storage()).window);
    expectReadable(*ShowForm(core.ui(), core.language()).window);
    expectReadable(*mergeForm(kit, core.dialogs, core.storage(), core.language()).window);
    expectReadable(*DetailsForm(kit).window);
    expectReadable(*ShowFormSingle(kit, core.display).window);
    expectReadable(*findForm(kit, core.dialogs, core.language()).window);
    expectReadable(*ShowFindFormSimple(kit).window);
    expectReadable(*findFormDomain(core.ui(), core.language()).window);
    expectReadable(*ShowFindFormDomains(kit, core.language()).window);
    expectReadable(*OthersForm(core.ui(), core.storage()).window);
    expectReadable(*configForm(kit, core.dialogs, core.storage()).window);
    expectReadable(*aboutForm(kit).window);
}

TEST_F(Accessibility, aRelationIsSpokenWithItsStrength) {
    const auto window = kit.createWindow();
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
