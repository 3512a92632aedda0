#pragma once
// The drawings: the images of the tree and the icon of the windows. They are drawn, not stored,
// so that they are sharp at every size and density of pixels.

#include <windows.h>
// The line above comes first.
#include <commctrl.h>

#include "platform/tree_model.h"

namespace pelk {

/// The images of trees, `size` pixels wide and high, in the order of `TreeImage`; the first is
/// empty. The classes of a relation are told apart by shape as well as by colour: three bars, two,
/// one. The caller destroys the list.
HIMAGELIST createTreeImageList(int size);

/// One of them alone, which the caller destroys.
HICON createTreeIcon(TreeImage image, int size);

/// The icon of all windows: two contacts and the link between them. The caller destroys it.
HICON createProgramIcon(int size);

}  // namespace pelk
