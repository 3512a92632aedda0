#pragma once
// What the forms with a picture have in common: the picture, the tree of its people beside it, and
// the buttons for both. They stand at the same places in each form.

#include "map/picture_view.h"
#include "platform/platform.h"
#include "platform/user_interface.h"
#include "views/form_layout.h"

namespace pelk {

/// The inner area of these forms at its smallest, in twips.
inline constexpr Size kPictureFormSize{10200, 6600};
inline constexpr int kPictureRowHeight = 260;
/// The width of a zoom button, and the left edge of the first one, in twips: the form's own
/// controls stand left of it.
inline constexpr int kZoomWidth = 1100;
inline constexpr int kZoomLeft = kPictureFormSize.width - 3 * (kFormMargin + kZoomWidth);
/// The width and the top of "Show in the relations view", at the lower left, in twips.
inline constexpr int kGoWidth = 2500;
inline constexpr int kPictureButtonTop = bottomButton(kPictureFormSize, 1).top;

/// Stay in an upper or a lower corner with their sizes.
inline constexpr Anchor kAnchorTopRight{1, 0, 0, 0};
inline constexpr Anchor kAnchorBottomLeft{0, 1, 0, 0};

/// References to controls of a form, which outlive this object.
struct PictureControls {
    Button& zoomIn;
    Button& zoomOut;
    Button& showAll;
    /// Above the picture.
    Label& title;
    DrawingArea& picture;
    Label& treeLabel;
    TreeView& tree;
    /// Below both.
    Label& selected;
    Button& go;
    Button& save;
    Button& print;
    Button& ok;
};

/// Places the controls: the buttons of the zoom at the upper right, and all others below `top`.
void placePicture(FormLayout& layout, const PictureControls& controls, int top);

/// Makes the buttons zoom, save and print the picture, and hide the window. All arguments outlive
/// the controls.
void connectPicture(const PictureControls& controls, Window& window, PictureView& view,
                    const UserInterface& ui, const Platform& platform);

}  // namespace pelk
