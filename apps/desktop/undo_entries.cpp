#include "apps/desktop/undo_entries.h"

#include <QAction>

#include "platform/guard.h"
#include "views/undo_items.h"

namespace pelk {
namespace {

/// The entry is disabled only while the menu is open, so that the keys always work: by the time
/// they are pressed, there may be a step to undo.
void addEntry(QMenu& menu, QAction* before, const char* caption, const QKeySequence& keys,
              const std::function<std::string()>& name, const std::function<void()>& act,
              Dialogs& dialogs) {
    auto* const action = new QAction('&' + QString::fromUtf8(caption), &menu);
    action->setShortcut(keys);
    menu.insertAction(before, action);
    QObject::connect(action, &QAction::triggered, action,
                     [&dialogs, act] { guarded(dialogs, act); });
    QObject::connect(&menu, &QMenu::aboutToShow, action, [action, caption, name] {
        const std::string step = name();
        const QString text =
            QString::fromStdString(step.empty() ? caption : stepCaption(caption, step));
        action->setText('&' + QString(text).replace('&', QStringLiteral("&&")));
        action->setEnabled(!step.empty());
    });
    QObject::connect(
        &menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); },
        Qt::QueuedConnection);
}

}  // namespace

void addUndoEntries(QMenu& menu, Dialogs& dialogs, const UndoCommands& commands) {
    QAction* const first = menu.actions().value(0);
    addEntry(menu, first, "Undo", QKeySequence::Undo, commands.undoName, commands.undo, dialogs);
    addEntry(menu, first, "Redo", QKeySequence::Redo, commands.redoName, commands.redo, dialogs);
    menu.insertSeparator(first);
}

}  // namespace pelk
