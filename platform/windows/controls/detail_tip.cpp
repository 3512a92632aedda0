#include "platform/windows/controls/detail_tip.h"

#include "platform/windows/controls/module.h"
#include "platform/windows/controls/tree_detail.h"

namespace pelk {

DetailTip::DetailTip(HWND tree)
    : tree_(tree),
      tip_(CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                           0, 0, 0, tree, nullptr, ownModule(), nullptr)) {
    const TTTOOLINFOW added = tool();
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&added));
}

TTTOOLINFOW DetailTip::tool() const {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = tree_;
    tool.rect = place_;
    tool.lpszText = const_cast<wchar_t*>(text_.c_str());
    return tool;
}

/// The tip control hides the tip when the pointer leaves the place.
void DetailTip::pointAt(HTREEITEM item, const std::wstring& detail) {
    const RECT place = placeOfCutDetail(tree_, item, detail).value_or(RECT{});
    if (EqualRect(&place, &place_) && detail == text_)
        return;
    place_ = place;
    text_ = detail;
    const TTTOOLINFOW changed = tool();
    SendMessageW(tip_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&changed));
    SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&changed));
}

}  // namespace pelk
