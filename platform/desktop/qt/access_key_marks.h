#pragma once
// The access keys of a window.

#include <QWidget>

namespace pelk {

/// Gives each button in the window that has no access key one that is free.
void markAccessKeys(QWidget& window);

}  // namespace pelk
