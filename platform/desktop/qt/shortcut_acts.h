#pragma once
// What the shortcuts of a window do.

#include <QWidget>
#include <functional>
#include <map>

#include "platform/dialogs.h"
#include "platform/shortcuts.h"

namespace pelk {

class ShortcutActs {
 public:
    /// Both references must outlive this object. `dialogs` shows what an act throws.
    ShortcutActs(QWidget& window, Dialogs& dialogs) : window_(window), dialogs_(dialogs) {}

    /// Sets or replaces the act of a shortcut.
    void set(Shortcut shortcut, std::function<void()> act);

 private:
    void listen(Shortcut shortcut);
    void listen(Shortcut shortcut, const QString& keys);

    QWidget& window_;
    Dialogs& dialogs_;
    std::map<Shortcut, std::function<void()>> acts_;
};

}  // namespace pelk
