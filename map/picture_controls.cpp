#include "map/picture_controls.h"

#include "map/picture_saving.h"

namespace pelk {
namespace {

constexpr int kTreeWidth = 3200;
constexpr int kTreeLeft = kPictureFormSize.width - kFormMargin - kTreeWidth;
constexpr int kPictureWidth = kTreeLeft - 2 * kFormMargin;
constexpr int kSelectedTop = kPictureButtonTop - kFormMargin / 2 - kPictureRowHeight;
constexpr int kSaveWidth = 1600;

constexpr Anchor kAnchorRight{1, 0, 0, 1};

/// The zoom buttons, counted from the left, from 0.
constexpr Rect zoomButton(int number) {
    return {kZoomLeft + number * (kFormMargin + kZoomWidth), kFormMargin, kZoomWidth,
            kFormButton.height};
}

/// Wider than others, for its text.
constexpr Rect saveButton() {
    const Rect usual = bottomButton(kPictureFormSize, 3);
    return {usual.left + usual.width - kSaveWidth, usual.top, kSaveWidth, usual.height};
}

}  // namespace

void placePicture(FormLayout& layout, const PictureControls& controls, int top) {
    const int below = top + kPictureRowHeight;
    const int height = kSelectedTop - kFormMargin / 2 - below;
    layout.add(controls.zoomIn, zoomButton(0), kAnchorTopRight);
    layout.add(controls.zoomOut, zoomButton(1), kAnchorTopRight);
    layout.add(controls.showAll, zoomButton(2), kAnchorTopRight);
    layout.add(controls.title, {kFormMargin, top, kPictureWidth, kPictureRowHeight}, kAnchorTop);
    layout.add(controls.picture, {kFormMargin, below, kPictureWidth, height}, kAnchorFill);
    layout.add(controls.treeLabel, {kTreeLeft, top, kTreeWidth, kPictureRowHeight},
               kAnchorTopRight);
    layout.add(controls.tree, {kTreeLeft, below, kTreeWidth, height}, kAnchorRight);
    layout.add(
        controls.selected,
        {kFormMargin, kSelectedTop, kPictureFormSize.width - 2 * kFormMargin, kPictureRowHeight},
        kAnchorBottom);
    layout.add(controls.go, {kFormMargin, kPictureButtonTop, kGoWidth, kFormButton.height},
               kAnchorBottomLeft);
    layout.add(controls.save, saveButton(), kAnchorBottomRight);
    layout.add(controls.print, bottomButton(kPictureFormSize, 2), kAnchorBottomRight);
    layout.add(controls.ok, bottomButton(kPictureFormSize, 1), kAnchorBottomRight);
}

void connectPicture(const PictureControls& controls, Window& window, PictureView& view,
                    const UserInterface& ui, const Platform& platform) {
    controls.zoomIn.onClick = [&view] { view.zoomIn(); };
    controls.zoomOut.onClick = [&view] { view.zoomOut(); };
    controls.showAll.onClick = [&view] { view.showAll(); };
    controls.save.onClick = [&view, &ui, &platform] {
        savePicture(view.arrangement(), ui, platform);
    };
    controls.print.onClick = [&view, &ui] { printPicture(view.arrangement(), ui); };
    controls.ok.onClick = [&window] { window.hide(); };
}

}  // namespace pelk
