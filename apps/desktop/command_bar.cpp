#include "apps/desktop/command_bar.h"

#include <QAction>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>
#include <string>
#include <utility>

#include "platform/guard.h"

namespace pelk {
namespace {

QString toText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The window may already have destroyed the action.
class MenuButton : public CommandButton {
 public:
    explicit MenuButton(QAction* action) : action_(action) {}
    // A button may be removed by its own click handler.
    void remove() override {
        if (action_) {
            action_->setVisible(false);
            action_->disconnect();
            action_->deleteLater();
        }
    }

 private:
    QPointer<QAction> action_;
};

class MenuPopup : public CommandPopup {
 public:
    MenuPopup(QMenu& menu, QMenu& other, Dialogs& dialogs)
        : menu_(menu), other_(other), dialogs_(dialogs) {}

    std::unique_ptr<CommandButton> addButton(std::string_view caption, std::string_view tag,
                                             std::function<void()> clicked) override {
        QAction* const action = menu_.addAction(withAccessKey(toText(caption)));
        other_.addAction(action);
        action->setObjectName(toText(tag));
        QObject::connect(
            action, &QAction::triggered, action,
            [&dialogs = dialogs_, handler = std::move(clicked)] { guarded(dialogs, handler); });
        return std::make_unique<MenuButton>(action);
    }

 private:
    /// Marks the first letter of the caption that no other entry uses.
    QString withAccessKey(QString caption) {
        caption.replace('&', QStringLiteral("&&"));
        for (qsizetype at = 0; at < caption.size(); ++at) {
            const QChar letter = caption[at].toLower();
            if (!letter.isLetter() || accessKeys_.contains(letter))
                continue;
            accessKeys_ += letter;
            return caption.insert(at, '&');
        }
        return caption;
    }

    QMenu& menu_;
    QMenu& other_;
    Dialogs& dialogs_;
    QString accessKeys_;
};

}  // namespace

std::unique_ptr<CommandPopup> addToolBarPopup(QMainWindow& window, QMenu& menu, Dialogs& dialogs,
                                              std::string_view bar, std::string_view caption,
                                              std::string_view tag) {
    auto* const toolBar = window.findChild<QToolBar*>(toText(bar));
    if (toolBar == nullptr)
        throw Error("The mail window has no tool bar \"" + std::string(bar) + "\".");
    delete toolBar->findChild<QToolButton*>(toText(tag));
    auto* const button = new QToolButton(toolBar);
    button->setObjectName(toText(tag));
    button->setText(toText(caption));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    toolBar->addWidget(button);
    return std::make_unique<MenuPopup>(*button->menu(), menu, dialogs);
}

}  // namespace pelk
