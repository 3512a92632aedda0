#pragma once
// The access keys of windows and menus.

#include <QMenu>
#include <QWidget>

namespace pelk {

/// Give each button in the window, or each item of the menu, that has no access key one that is
/// free.
void markAccessKeys(const QWidget& window);
void markAccessKeys(const QMenu& menu);

}  // namespace pelk
