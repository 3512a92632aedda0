#pragma once
// The entries of a menu that undo and redo the user's last step.

#include <functional>
#include <string>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

/// Returns the caption of such an entry: "Undo deletion of example.org". Shortens long names.
std::string stepCaption(const std::string& act, const std::string& step);

/// Returns the line for the user about the last step, and how to undo it or do it again; empty when
/// there is none.
std::string lastStepText(const Database& database);

class UndoItems {
 public:
    /// Adds the entries at the end of the menu.
    explicit UndoItems(PopupMenu& menu);
    UndoItems(const UndoItems&) = delete;
    UndoItems& operator=(const UndoItems&) = delete;

    /// Do what the entries say. Set before the menu opens.
    std::function<void()> undo;
    std::function<void()> redo;

    /// Names the steps, and hides an entry that has none. Call it before the menu opens.
    void update(const Database& database);

 private:
    MenuItem& undoItem_;
    MenuItem& redoItem_;
};

}  // namespace pelk
