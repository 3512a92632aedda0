#pragma once
// What the shortcuts of a window do.

#include <windows.h>

#include <functional>
#include <map>
#include <optional>

#include "platform/shortcuts.h"

namespace pelk {

class ShortcutActs {
 public:
    /// Sets or replaces the act of a shortcut.
    void set(Shortcut shortcut, std::function<void()> act) { acts_[shortcut] = std::move(act); }
    /// Returns the act of a shortcut, empty if it has none.
    std::function<void()> actOf(Shortcut shortcut) const;
    /// Returns the shortcut that this message presses, if it has an act. Undo, redo and characters
    /// stay with a text box that has the focus, and so do keys that it has a handler for.
    std::optional<Shortcut> pressedBy(const MSG& message) const;

 private:
    std::map<Shortcut, std::function<void()>> acts_;
};

}  // namespace pelk
