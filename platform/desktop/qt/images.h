#pragma once
// The drawings: the images of the tree and the icon of the windows. They are drawn, not stored,
// so that they are sharp at every size and density of pixels.

#include <QIcon>

#include "platform/tree_model.h"

namespace pelk {

/// The image as an icon, the same icon each time; a null icon for `None`. The classes of a relation
/// are told apart by shape as well as by colour: three bars, two, one.
const QIcon& treeIcon(TreeImage image);

/// The icon of all windows: two contacts and the link between them.
const QIcon& programIcon();

}  // namespace pelk
