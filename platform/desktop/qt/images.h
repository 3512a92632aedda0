#pragma once
// The images of the tree and the icon of the windows. They are drawn rather than stored, so that
// they are sharp at every size and pixel density.

#include <QIcon>

#include "platform/tree_model.h"

namespace pelk {

/// Returns the cached icon of the image; a null icon for `None`. The classes of a relation differ
/// in shape as well as in colour: three bars, two, one.
const QIcon& treeIcon(TreeImage image);

/// Returns the icon of all windows: two contacts and the link between them.
const QIcon& programIcon();

}  // namespace pelk
