#pragma once
// What screen readers call the controls of a window.

#include <QWidget>

namespace pelk {

/// Names each tree, list, text box, slider and bar after the last label before it, in the order of
/// creation, unless a button lies between. Otherwise a text box is named after its placeholder, and
/// the rest after the window.
void nameControls(QWidget& window);

}  // namespace pelk
