#pragma once
// The images of the tree and the icon of the windows. They are drawn rather than stored, so that
// they are sharp at every size and pixel density.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include "platform/tree_model.h"

namespace pelk {

/// Returns the images of trees, `size` pixels wide and high, in the order of `TreeImage`; the first
/// is empty. The classes of a relation differ in shape as well as in colour: three bars, two, one.
/// The caller destroys the list.
HIMAGELIST createTreeImageList(int size);

/// Returns one of the images, which the caller destroys.
HICON createTreeIcon(TreeImage image, int size);

/// Returns the icon of all windows: two contacts and the link between them. The caller destroys it.
HICON createProgramIcon(int size);

}  // namespace pelk
