#pragma once
// The entries Undo and Redo of the menu Edit.

#include <QMenu>
#include <functional>
#include <string>

#include "platform/dialogs.h"

namespace pelk {

/// Undoing and redoing the user's last step. The names say what that is, see `Connect::undoName`.
/// All may throw `Error`.
struct UndoCommands {
    std::function<void()> undo;
    std::function<void()> redo;
    std::function<std::string()> undoName;
    std::function<std::string()> redoName;
};

/// Adds the entries at the top of the menu. They name the step when the menu opens. `dialogs` shows
/// the exceptions of the commands.
void addUndoEntries(QMenu& menu, Dialogs& dialogs, const UndoCommands& commands);

}  // namespace pelk
