#include "platform/desktop/qt/popup_menu.h"

#include "platform/access_keys.h"
#include "platform/desktop/qt/access_key_marks.h"
#include "platform/desktop/qt/control.h"
#include "platform/guard.h"

namespace pelk {

namespace {

QString shownAsItIs(const std::string& caption) {
    return QString::fromStdString(withoutAccessKey(caption));
}

class QtMenuItem : public MenuItem {
 public:
    QtMenuItem(QAction& action, Dialogs& dialogs) : action_(action) {
        // Queued, so that no event of the menu is being processed when the handler runs: it may
        // hide the window or show a box.
        QObject::connect(
            &action_, &QAction::triggered, &action_,
            [this, &dialogs] {
                setChecked(checked_);  // Qt has toggled it
                if (const auto handler = onClick)
                    guarded(dialogs, handler);
            },
            Qt::QueuedConnection);
    }
    void setVisible(bool visible) override { action_.setVisible(visible); }
    void setCaption(const std::string& caption) override { action_.setText(shownAsItIs(caption)); }
    void setEnabled(bool enabled) override { action_.setEnabled(enabled); }
    void setChecked(bool checked) override {
        checked_ = checked;
        action_.setCheckable(checked);
        action_.setChecked(checked);
    }

 private:
    QAction& action_;
    bool checked_ = false;
};

}  // namespace

MenuItem& QtPopupMenu::addItem(const std::string& caption) {
    QAction* const action = menu_.addAction(shownAsItIs(caption));
    items_.push_back(std::make_unique<QtMenuItem>(*action, dialogs_));
    return *items_.back();
}

void QtPopupMenu::open(ScreenPoint where) {
    markAccessKeys(menu_);
    if (!menu_.isEmpty())
        menu_.popup({where.x, where.y});
}

void QtPopupMenu::openBelow(Control& control) {
    const QWidget& widget = dynamic_cast<NativeWidget&>(control).nativeWidget();
    const QPoint corner = widget.mapToGlobal(QPoint(0, widget.height()));
    open({corner.x(), corner.y()});
}

}  // namespace pelk
