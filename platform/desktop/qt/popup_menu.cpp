#include "platform/desktop/qt/popup_menu.h"

#include "platform/guard.h"

namespace pelk {

namespace {

class QtMenuItem : public MenuItem {
 public:
    QtMenuItem(QAction& action, Dialogs& dialogs) : action_(action) {
        // Queued, so that no event of the menu is being processed when the handler runs: it may
        // hide the window or show a box.
        QObject::connect(
            &action_, &QAction::triggered, &action_,
            [this, &dialogs] {
                if (const auto handler = onClick)
                    guarded(dialogs, handler);
            },
            Qt::QueuedConnection);
    }
    void setVisible(bool visible) override { action_.setVisible(visible); }

 private:
    QAction& action_;
};

}  // namespace

MenuItem& QtPopupMenu::addItem(const std::string& caption) {
    QAction* const action = menu_.addAction(QString::fromStdString(caption).replace('&', "&&"));
    items_.push_back(std::make_unique<QtMenuItem>(*action, dialogs_));
    return *items_.back();
}

void QtPopupMenu::open(ScreenPoint where) {
    if (!menu_.isEmpty())
        menu_.popup({where.x, where.y});
}

}  // namespace pelk
