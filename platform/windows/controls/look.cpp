#include "platform/windows/controls/look.h"

#include <algorithm>

#include "platform/windows/controls/images.h"
#include "platform/windows/controls/module.h"
#include "platform/windows/controls/screen_dc.h"

namespace pelk {

namespace {

TwipScale scaleOf(HFONT font) {
    const WindowScope scope;
    return TwipScale::ofFont(font);
}

HIMAGELIST createTreeImages(HFONT font) {
    constexpr int kSmallest = 16;
    return createTreeImageList(std::max(kSmallest, ScreenDc(font).lineHeight()));
}

}  // namespace

HFONT createMessageFont() {
    const WindowScope scope;
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

Look::Look()
    : font_(createMessageFont()),
      scale_(scaleOf(font_)),
      treeImages_(createTreeImages(font_)),
      largeIcon_(createProgramIcon(GetSystemMetrics(SM_CXICON))),
      smallIcon_(createProgramIcon(GetSystemMetrics(SM_CXSMICON))) {
    constexpr DWORD kKinds = ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES |
                             ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES;
    const WindowScope scope;
    INITCOMMONCONTROLSEX controls = {sizeof controls, kKinds};
    InitCommonControlsEx(&controls);
}

Look::~Look() {
    DestroyIcon(smallIcon_);
    DestroyIcon(largeIcon_);
    ImageList_Destroy(treeImages_);
    DeleteObject(font_);
}

}  // namespace pelk
